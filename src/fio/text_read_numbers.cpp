// FIO: booleans and numbers read as items. Each reads one item into a local array of 80
// characters and passes it whole to Str's conversion; a reader with a narrower result than
// the conversion's adds a range test to the conversion's ok. The value comes back in every
// case, cut to the result's width.
#include <cmath>
#include <cstdint>

#include "brelt/fio.h"
#include "fio/text_twin.h"
#include "fio/token_steps.h"

namespace {

namespace bf = brelt::fio;
using brelt::FileHandle;
using brelt::Long;
using brelt::ULong;
using brelt::WChar;

constexpr unsigned kItemHigh = 79;
constexpr double kLargestReal32 = 3.4E38;

template <class T>
struct Item {
  explicit Item(FileHandle file) { bf::ReadItemFrom(file, kItemHigh, text); }
  T text[kItemHigh + 1];
};

// The 32-bit readers hand the caller's ok to the conversion; the narrower ones test the range.
template <class T>
ULong ReadCard(FileHandle file, unsigned base, unsigned char* ok) {
  const Item<T> item(file);
  return bf::TextTwin<T>::StrToCard(kItemHigh, item.text, base, ok);
}

template <class R, class T>
R ReadCardBelow(FileHandle file, unsigned base, ULong limit, unsigned char* ok) {
  unsigned char converted = 0;
  const ULong value = ReadCard<T>(file, base, &converted);
  *ok = converted != 0 && value < limit ? 1 : 0;
  return static_cast<R>(value);
}

template <class T>
Long ReadInt(FileHandle file, unsigned char* ok) {
  const Item<T> item(file);
  return bf::TextTwin<T>::StrToInt(kItemHigh, item.text, 10, ok);
}

template <class R, class T>
R ReadIntWithin(FileHandle file, Long lowest, Long highest, unsigned char* ok) {
  unsigned char converted = 0;
  const Long value = ReadInt<T>(file, &converted);
  *ok = converted != 0 && value >= lowest && value <= highest ? 1 : 0;
  return static_cast<R>(value);
}

template <class T>
double ReadLngReal(FileHandle file, unsigned char* ok) {
  const Item<T> item(file);
  return bf::TextTwin<T>::StrToReal(kItemHigh, item.text, ok);
}

// The 64-bit value is tested, so a NaN and values just above 3.4E38 fail too.
template <class T>
float ReadReal(FileHandle file, unsigned char* ok) {
  unsigned char converted = 0;
  const double value = ReadLngReal<T>(file, &converted);
  *ok = converted != 0 && std::fabs(value) <= kLargestReal32 ? 1 : 0;
  return static_cast<float>(value);
}

template <class T>
constexpr T kFalse[] = {'F', 'A', 'L', 'S', 'E', 0};
template <class T>
constexpr T kTrue[] = {'T', 'R', 'U', 'E', 0};

// Exact words: "true" and "False" are no booleans.
template <class T>
unsigned char ReadBool(FileHandle file, unsigned char* ok) {
  const Item<T> item(file);
  *ok = 1;
  if (bf::TextTwin<T>::Compare(kItemHigh, item.text, 5, kFalse<T>) == 0) return 0;
  if (bf::TextTwin<T>::Compare(kItemHigh, item.text, 4, kTrue<T>) == 0) return 1;
  *ok = 0;
  return 0;
}

}  // namespace

namespace FIO {

unsigned char RdBoolA(FileHandle file, unsigned char* ok) { return ReadBool<char>(file, ok); }
unsigned char RdBoolW(FileHandle file, unsigned char* ok) { return ReadBool<WChar>(file, ok); }

unsigned char RdCard8A(FileHandle file, unsigned char* ok) {
  return ReadCardBelow<unsigned char, char>(file, 10, 256, ok);
}
unsigned char RdCard8W(FileHandle file, unsigned char* ok) {
  return ReadCardBelow<unsigned char, WChar>(file, 10, 256, ok);
}
unsigned short RdCard16A(FileHandle file, unsigned char* ok) {
  return ReadCardBelow<unsigned short, char>(file, 10, 65536, ok);
}
unsigned short RdCard16W(FileHandle file, unsigned char* ok) {
  return ReadCardBelow<unsigned short, WChar>(file, 10, 65536, ok);
}
ULong RdCard32A(FileHandle file, unsigned char* ok) { return ReadCard<char>(file, 10, ok); }
ULong RdCard32W(FileHandle file, unsigned char* ok) { return ReadCard<WChar>(file, 10, ok); }

unsigned char RdHex8A(FileHandle file, unsigned char* ok) {
  return ReadCardBelow<unsigned char, char>(file, 16, 256, ok);
}
unsigned char RdHex8W(FileHandle file, unsigned char* ok) {
  return ReadCardBelow<unsigned char, WChar>(file, 16, 256, ok);
}
unsigned short RdHex16A(FileHandle file, unsigned char* ok) {
  return ReadCardBelow<unsigned short, char>(file, 16, 65536, ok);
}
unsigned short RdHex16W(FileHandle file, unsigned char* ok) {
  return ReadCardBelow<unsigned short, WChar>(file, 16, 65536, ok);
}
ULong RdHex32A(FileHandle file, unsigned char* ok) { return ReadCard<char>(file, 16, ok); }
ULong RdHex32W(FileHandle file, unsigned char* ok) { return ReadCard<WChar>(file, 16, ok); }

signed char RdInt8A(FileHandle file, unsigned char* ok) {
  return ReadIntWithin<signed char, char>(file, -128, 127, ok);
}
signed char RdInt8W(FileHandle file, unsigned char* ok) {
  return ReadIntWithin<signed char, WChar>(file, -128, 127, ok);
}
short RdInt16A(FileHandle file, unsigned char* ok) {
  return ReadIntWithin<short, char>(file, -32768, 32767, ok);
}
short RdInt16W(FileHandle file, unsigned char* ok) {
  return ReadIntWithin<short, WChar>(file, -32768, 32767, ok);
}
Long RdInt32A(FileHandle file, unsigned char* ok) { return ReadInt<char>(file, ok); }
Long RdInt32W(FileHandle file, unsigned char* ok) { return ReadInt<WChar>(file, ok); }

float RdRealA(FileHandle file, unsigned char* ok) { return ReadReal<char>(file, ok); }
float RdRealW(FileHandle file, unsigned char* ok) { return ReadReal<WChar>(file, ok); }
double RdLngRealA(FileHandle file, unsigned char* ok) { return ReadLngReal<char>(file, ok); }
double RdLngRealW(FileHandle file, unsigned char* ok) { return ReadLngReal<WChar>(file, ok); }

}  // namespace FIO
