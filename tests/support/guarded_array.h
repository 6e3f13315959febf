// Arrays that sit flush against a page that may not be touched, so that any access one element
// past the array (or, with GuardSide::kFront, one element before it) faults at once instead of
// passing unnoticed. Every test that writes a bounded string uses one.
#pragma once

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/memory_pages.h"

namespace brelt::test {

enum class GuardSide { kBack, kFront };

template <class T>
class GuardedArray {
 public:
  explicit GuardedArray(std::size_t count, GuardSide side = GuardSide::kBack) : count_(count) {
    namespace pf = brelt::platform;
    const std::size_t page = pf::PageSize();
    const std::size_t bytes = count * sizeof(T);
    mapped_ = ((bytes + page - 1) / page + 1) * page;
    base_ = static_cast<unsigned char*>(pf::MapPages(mapped_));
    if (base_ == nullptr) throw std::runtime_error("no pages for a guarded array");
    if (side == GuardSide::kBack) {
      pf::ProtectNoAccess(base_ + mapped_ - page, page);
      data_ = reinterpret_cast<T*>(base_ + mapped_ - page - bytes);
    } else {
      pf::ProtectNoAccess(base_, page);
      data_ = reinterpret_cast<T*>(base_ + page);
    }
    // A recognisable filler, so that tests see which elements an operation left alone.
    for (std::size_t i = 0; i < count_; ++i) data_[i] = static_cast<T>('#');
  }
  // From a text: the array holds exactly its characters and no terminator, unless the text
  // itself spells one ('\0' inside a string_view).
  template <class C>
  explicit GuardedArray(std::basic_string_view<C> text, GuardSide side = GuardSide::kBack)
      : GuardedArray(text.size(), side) {
    // Through the unsigned type, so that 8-bit text widens without sign extension.
    for (std::size_t i = 0; i < text.size(); ++i) {
      data_[i] = static_cast<T>(static_cast<std::make_unsigned_t<C>>(text[i]));
    }
  }
  GuardedArray(const GuardedArray&) = delete;
  GuardedArray& operator=(const GuardedArray&) = delete;
  GuardedArray(GuardedArray&& other) noexcept
      : count_(other.count_), mapped_(other.mapped_), base_(other.base_), data_(other.data_) {
    other.base_ = nullptr;
  }
  ~GuardedArray() {
    if (base_ != nullptr) brelt::platform::UnmapPages(base_, mapped_);
  }

  T* data() { return data_; }
  const T* data() const { return data_; }
  std::size_t size() const { return count_; }
  unsigned int high() const { return static_cast<unsigned int>(count_ - 1); }
  T& operator[](std::size_t i) { return data_[i]; }
  const T& operator[](std::size_t i) const { return data_[i]; }

  // The whole array as it stands, NULs and filler included, widened to char for messages.
  std::string Raw() const {
    std::string out;
    for (std::size_t i = 0; i < count_; ++i) {
      out += data_[i] == T{0} ? '0' : static_cast<char>(data_[i]);
    }
    return out;
  }

 private:
  std::size_t count_;
  std::size_t mapped_ = 0;
  unsigned char* base_ = nullptr;
  T* data_ = nullptr;
};

}  // namespace brelt::test
