// The side-by-side program prints one line per item: a key without blanks, then the result.
// Everything is formatted here, never by the C library's printf, so that the two targets
// cannot differ in the printing itself.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace sidebyside {

inline std::string Hex(std::uint64_t v, int digits) {
  std::string s(static_cast<std::size_t>(digits), '0');
  for (int i = digits - 1; i >= 0 && v != 0; --i, v >>= 4) s[i] = "0123456789ABCDEF"[v & 15];
  return s;
}

// A double as its bits, with the shortest decimal that reads back as it for the reader.
inline std::string Real(double d) {
  std::uint64_t bits;
  static_assert(sizeof bits == sizeof d);
  __builtin_memcpy(&bits, &d, sizeof d);
  char buf[40];
  const auto end = std::to_chars(buf, buf + sizeof buf, d).ptr;
  return Hex(bits, 16) + " " + std::string(buf, end);
}

// A double in a key, where no blank may stand.
inline std::string RealKey(double d) {
  std::string s = Real(d);
  s[16] = '/';
  return s;
}

inline std::string Dec(long long v) { return std::to_string(v); }

// Bytes of text, printable ASCII as it is and everything else, blanks too, as <XX>.
inline std::string Shown(std::string_view text) {
  std::string s = "\"";
  for (char c : text) {
    const auto b = static_cast<unsigned char>(c);
    if (b > 0x20 && b < 0x7F && b != '<' && b != '"') {
      s += c;
    } else {
      s += "<" + Hex(b, 2) + ">";
    }
  }
  return s + "\"";
}

class Report {
 public:
  void Line(std::string_view key, std::string_view value) {
    out_.append(key).append(" ").append(value).append("\n");
    if (out_.size() > (1u << 16)) Flush();
  }
  void Flush() {
    std::fwrite(out_.data(), 1, out_.size(), stdout);
    out_.clear();
  }
  ~Report() { Flush(); }

 private:
  std::string out_;
};

}  // namespace sidebyside
