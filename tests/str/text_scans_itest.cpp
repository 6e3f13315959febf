// The bodies that the exported character scans are bound to, at every width the CPU offers,
// against plain walks: texts of every length around the block sizes, in arrays with room
// behind the NUL and in full ones that end before an unreadable page.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

#include "guarded_array.h"
#include "kernel_tables.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;

struct Expected {
  unsigned length, first, last, count;
};

template <class T>
Expected Walk(const T* s, unsigned high, T ch) {
  Expected e{0, brelt::kNotFound, brelt::kNotFound, 0};
  for (; e.length <= high && s[e.length] != T{0}; ++e.length) {
    if (s[e.length] != ch) continue;
    if (e.first == brelt::kNotFound) e.first = e.length;
    e.last = e.length;
    ++e.count;
  }
  return e;
}

#define AT_WIDTH(Name) BRELT_TEXT_SCAN_AT_WIDTH(T, w, Name)

template <class T>
void Check(brelt::scan::Width w, const char* name, std::mt19937& rng) {
  const T ch = static_cast<T>(sizeof(T) == 1 ? 'q' : 0x2071);
  for (unsigned length = 0; length <= 300; ++length) {
    // Room behind the NUL: none (a full array), a little, and far more than the text; the
    // array ends before an unreadable page, or before elements (ch and NUL among them) that
    // must not be looked at.
    for (unsigned room : {0u, 1u, 40u, 700u}) {
      for (unsigned behind : {0u, 80u}) {
        const unsigned size = length + room;
        if (size == 0) continue;
        GuardedArray<T> text(size + behind);
        for (unsigned i = 0; i < size + behind; ++i) {
          const auto r = rng() % 9;
          text[i] = r == 0 ? ch : r == 1 && i >= size ? T{0} : static_cast<T>('a' + rng() % 20);
        }
        if (room > 0) text[length] = T{0};
        const Expected e = Walk(text.data(), size - 1, ch);
        const std::string at = std::string(name) + " length " + std::to_string(length) +
                               " room " + std::to_string(room) + " behind " +
                               std::to_string(behind);
        ASSERT_EQ(AT_WIDTH(Length)(size - 1, text.data()), e.length) << at;
        ASSERT_EQ(AT_WIDTH(CharPos)(size - 1, text.data(), ch), e.first) << at;
        ASSERT_EQ(AT_WIDTH(RCharPos)(size - 1, text.data(), ch), e.last) << at;
        ASSERT_EQ(AT_WIDTH(Count)(size - 1, text.data(), ch), e.count) << at;
      }
    }
  }
}

TEST(TextScans, EveryWidthAgreesWithPlainWalks) {
  std::mt19937 rng(7);
  for (const auto& table : brelt::test::RunnableKernelTables()) {
    Check<char>(table.width, table.name, rng);
    Check<WChar>(table.width, table.name, rng);
  }
}

}  // namespace
