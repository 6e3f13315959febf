// FIO: booleans and numbers in a field. A number is converted by Str into a local array of 80
// characters; a conversion that reports failure writes nothing, fill included, and leaves the
// last error alone.
#include <cstdint>

#include "brelt/fio.h"
#include "fio/text_twin.h"
#include "fio/token_writes.h"

namespace {

namespace bf = brelt::fio;
using brelt::FileHandle;
using brelt::Long;
using brelt::ULong;
using brelt::WChar;

constexpr unsigned kNumberHigh = 79;

template <class T, class Convert>
void WriteNumber(FileHandle file, Long width, Convert convert) {
  T text[kNumberHigh + 1];
  unsigned char ok = 0;
  convert(text, &ok);
  if (ok != 0) bf::WriteField(file, kNumberHigh, text, width);
}

template <class T>
void WriteCard(FileHandle file, ULong value, unsigned base, Long width) {
  WriteNumber<T>(file, width, [&](T* text, unsigned char* ok) {
    bf::TextTwin<T>::CardToStr(value, kNumberHigh, text, base, ok);
  });
}

template <class T>
void WriteInt(FileHandle file, Long value, Long width) {
  WriteNumber<T>(file, width, [&](T* text, unsigned char* ok) {
    bf::TextTwin<T>::IntToStr(value, kNumberHigh, text, 10, ok);
  });
}

template <class T>
void WriteReal(FileHandle file, double value, unsigned digits, Long width) {
  WriteNumber<T>(file, width, [&](T* text, unsigned char* ok) {
    bf::TextTwin<T>::RealToStr(value, digits, FIO::Eng, kNumberHigh, text, ok);
  });
}

template <class T>
void WriteFixReal(FileHandle file, double value, unsigned digits, Long width) {
  WriteNumber<T>(file, width, [&](T* text, unsigned char* ok) {
    bf::TextTwin<T>::FixRealToStr(value, digits, kNumberHigh, text, ok);
  });
}

template <class T>
constexpr T kFalse[] = {'F', 'A', 'L', 'S', 'E', 0};
template <class T>
constexpr T kTrue[] = {'T', 'R', 'U', 'E', 0};

template <class T>
void WriteBool(FileHandle file, unsigned char value, Long width) {
  if (value == 0) {
    bf::WriteField(file, 5, kFalse<T>, width);
  } else {
    bf::WriteField(file, 4, kTrue<T>, width);
  }
}

}  // namespace

namespace FIO {

void WrBoolA(FileHandle file, unsigned char value, Long width) {
  WriteBool<char>(file, value, width);
}
void WrBoolW(FileHandle file, unsigned char value, Long width) {
  WriteBool<WChar>(file, value, width);
}

void WrCard8A(FileHandle file, unsigned char value, Long width) {
  WriteCard<char>(file, value, 10, width);
}
void WrCard8W(FileHandle file, unsigned char value, Long width) {
  WriteCard<WChar>(file, value, 10, width);
}
void WrCard16A(FileHandle file, unsigned short value, Long width) {
  WriteCard<char>(file, value, 10, width);
}
void WrCard16W(FileHandle file, unsigned short value, Long width) {
  WriteCard<WChar>(file, value, 10, width);
}
void WrCard32A(FileHandle file, ULong value, Long width) {
  WriteCard<char>(file, value, 10, width);
}
void WrCard32W(FileHandle file, ULong value, Long width) {
  WriteCard<WChar>(file, value, 10, width);
}

void WrHex8A(FileHandle file, unsigned char value, Long width) {
  WriteCard<char>(file, value, 16, width);
}
void WrHex8W(FileHandle file, unsigned char value, Long width) {
  WriteCard<WChar>(file, value, 16, width);
}
void WrHex16A(FileHandle file, unsigned short value, Long width) {
  WriteCard<char>(file, value, 16, width);
}
void WrHex16W(FileHandle file, unsigned short value, Long width) {
  WriteCard<WChar>(file, value, 16, width);
}
void WrHex32A(FileHandle file, ULong value, Long width) { WriteCard<char>(file, value, 16, width); }
void WrHex32W(FileHandle file, ULong value, Long width) {
  WriteCard<WChar>(file, value, 16, width);
}

void WrInt8A(FileHandle file, signed char value, Long width) { WriteInt<char>(file, value, width); }
void WrInt8W(FileHandle file, signed char value, Long width) {
  WriteInt<WChar>(file, value, width);
}
void WrInt16A(FileHandle file, short value, Long width) { WriteInt<char>(file, value, width); }
void WrInt16W(FileHandle file, short value, Long width) { WriteInt<WChar>(file, value, width); }
void WrInt32A(FileHandle file, Long value, Long width) { WriteInt<char>(file, value, width); }
void WrInt32W(FileHandle file, Long value, Long width) { WriteInt<WChar>(file, value, width); }

// The 32-bit reals are widened to 64 bits first.
void WrRealA(FileHandle file, float value, unsigned int digits, Long width) {
  WriteReal<char>(file, value, digits, width);
}
void WrRealW(FileHandle file, float value, unsigned int digits, Long width) {
  WriteReal<WChar>(file, value, digits, width);
}
void WrLngRealA(FileHandle file, double value, unsigned int digits, Long width) {
  WriteReal<char>(file, value, digits, width);
}
void WrLngRealW(FileHandle file, double value, unsigned int digits, Long width) {
  WriteReal<WChar>(file, value, digits, width);
}
void WrFixRealA(FileHandle file, float value, unsigned int digits, Long width) {
  WriteFixReal<char>(file, value, digits, width);
}
void WrFixRealW(FileHandle file, float value, unsigned int digits, Long width) {
  WriteFixReal<WChar>(file, value, digits, width);
}
void WrFixLngRealA(FileHandle file, double value, unsigned int digits, Long width) {
  WriteFixReal<char>(file, value, digits, width);
}
void WrFixLngRealW(FileHandle file, double value, unsigned int digits, Long width) {
  WriteFixReal<WChar>(file, value, digits, width);
}

}  // namespace FIO
