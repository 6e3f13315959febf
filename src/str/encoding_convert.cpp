// Str conversions between the 8-bit text of the system code page and 16-bit text.
#include "brelt/str/encoding.h"
#include "bounded.h"
#include "platform/code_page_convert.h"

namespace {

namespace pf = brelt::platform;

std::uint32_t ToUnits(const char* src, std::uint32_t n, brelt::WChar* dst, std::uint32_t cap) {
  return pf::CodePageToUnits(src, n, dst, cap);
}
std::uint32_t ToBytes(const brelt::WChar* src, std::uint32_t n, char* dst, std::uint32_t cap) {
  return pf::UnitsToCodePage(src, n, dst, cap, false);
}
std::uint32_t ToBytesComposed(const brelt::WChar* src, std::uint32_t n, char* dst,
                              std::uint32_t cap) {
  return pf::UnitsToCodePage(src, n, dst, cap, true);
}

// A conversion that does not fit counts 0 and so leaves the empty string, not a cut text.
// The capacity is formed in 32 bits.
template <class S, class D, class Service>
void Bounded(unsigned int srcHigh, const S* src, unsigned int dstHigh, D* dst, Service service) {
  const std::uint64_t n = brelt::str::MeasuredLength(srcHigh, src);
  std::uint32_t r = 0;
  if (n != 0) r = service(src, static_cast<std::uint32_t>(n), dst, dstHigh + 1u);
  if (r <= dstHigh) dst[r] = D{0};
}

template <class S, class D, class Service>
void Pointer(const void* src, std::uint32_t srcLen, void* dst, std::uint32_t* dstLen,
             Service service) {
  auto* out = static_cast<D*>(dst);
  std::uint32_t r = 0;
  if (srcLen != 0) r = service(static_cast<const S*>(src), srcLen, out, *dstLen);
  if (r < *dstLen && out != nullptr) out[r] = D{0};
  *dstLen = r;
}

}  // namespace

namespace Str {

void A2U(unsigned int srcHigh, const char* src, unsigned int dstHigh, WChar* dst) {
  Bounded(srcHigh, src, dstHigh, dst, ToUnits);
}
void U2A(unsigned int srcHigh, const WChar* src, unsigned int dstHigh, char* dst) {
  Bounded(srcHigh, src, dstHigh, dst, ToBytes);
}
void C_A2U(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const char* src) {
  Bounded(srcHigh, src, dstHigh, dst, ToUnits);
}
void C_U2A(unsigned int dstHigh, char* dst, unsigned int srcHigh, const WChar* src) {
  Bounded(srcHigh, src, dstHigh, dst, ToBytes);
}

void A2UP(const void* src, unsigned int srcLen, void* dst, unsigned int* dstLen) {
  Pointer<char, WChar>(src, srcLen, dst, dstLen, ToUnits);
}
// Unlike U2A, this form asks for base characters with combining marks to be composed.
void U2AP(const void* src, unsigned int srcLen, void* dst, unsigned int* dstLen) {
  Pointer<WChar, char>(src, srcLen, dst, dstLen, ToBytesComposed);
}

}  // namespace Str
