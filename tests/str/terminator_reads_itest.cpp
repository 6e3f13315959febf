// Reads that stop where the text does. Every operation that reads a text as far as its NUL is
// given the all-ones bound over texts of every length up to 640 whose NUL is the last element
// before an unreadable page, at every scan width the CPU offers: it must not fault and must
// give what it gives with the exact bound. Compares must not read a page behind the first
// difference of two areas whose stated length runs far beyond it.
#include <brelt/lib.h>
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "guarded_array.h"
#include "kernel_tables.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;
using brelt::test::RunnableKernelTables;

constexpr unsigned kAll = 0xFFFFFFFFu;
constexpr unsigned kLongest = 640;

// Folds a destination array into the result, so that a difference in what was stored shows.
template <class T>
std::uint64_t Digest(const std::vector<T>& v) {
  std::uint64_t h = 1469598103934665603u;
  for (T c : v) h = (h ^ static_cast<std::uint16_t>(c)) * 1099511628211u;
  return h;
}

template <class T>
struct Row {
  const char* name;
  std::uint64_t (*run)(unsigned high, const T* s);
};

// The A or W twin of a Str operation, by the twin's character type.
#define TWIN(f) ([] { if constexpr (sizeof(T) == 1) return &Str::f##A; else return &Str::f##W; }())

// The width being walked. Exports bound at load keep the CPU's width whatever table is in use,
// so their rows call the body of this width.
brelt::scan::Width width = brelt::scan::Width::kSse2;
#define BOUND(f) BRELT_TEXT_SCAN_AT_WIDTH(T, width, f)

template <class T>
std::vector<Row<T>> Rows() {
  static const T pat[] = {'*', '~', 0};
  static const T seps[] = {'e', '5', 0};
  std::vector<Row<T>> rows = {
      {"Length", [](unsigned h, const T* s) -> std::uint64_t { return BOUND(Length)(h, s); }},
      {"CharPos",
       [](unsigned h, const T* s) -> std::uint64_t { return BOUND(CharPos)(h, s, '~'); }},
      {"NextCharPos",
       [](unsigned h, const T* s) -> std::uint64_t { return TWIN(NextCharPos)(h, s, '~', 1); }},
      {"RCharPos",
       [](unsigned h, const T* s) -> std::uint64_t { return BOUND(RCharPos)(h, s, 'c'); }},
      {"Count", [](unsigned h, const T* s) -> std::uint64_t { return BOUND(Count)(h, s, '3'); }},
      {"Pos", [](unsigned h, const T* s) -> std::uint64_t { return TWIN(Pos)(h, s, kAll, pat + 1); }},
      {"NextPos",
       [](unsigned h, const T* s) -> std::uint64_t { return TWIN(NextPos)(h, s, 0, pat + 1, 1); }},
      {"Compare", [](unsigned h, const T* s) -> std::uint64_t {
         return static_cast<std::uint64_t>(TWIN(Compare)(h, s, h, s) + 1);
       }},
      {"Match", [](unsigned h, const T* s) -> std::uint64_t { return TWIN(Match)(h, s, kAll, pat); }},
      {"MatchCS",
       [](unsigned h, const T* s) -> std::uint64_t { return TWIN(MatchCS)(h, s, kAll, pat); }},
      {"FindSubStr", [](unsigned h, const T* s) -> std::uint64_t {
         Str::PosLen res[2];
         const std::uint64_t r = TWIN(FindSubStr)(h, s, kAll, pat, 1, res);
         return r ^ (std::uint64_t{res[0].pos} << 8) ^ (std::uint64_t{res[0].len} << 40);
       }},
      {"StrToInt", [](unsigned h, const T* s) -> std::uint64_t {
         unsigned char ok;
         const auto v = TWIN(StrToInt)(h, s, 10, &ok);
         return static_cast<std::uint32_t>(v) * 2u + ok;
       }},
      {"StrToCard64", [](unsigned h, const T* s) -> std::uint64_t {
         unsigned char ok;
         return TWIN(StrToCard64)(h, s, 10, &ok) * 2u + ok;
       }},
      {"StrToInt64 base 16", [](unsigned h, const T* s) -> std::uint64_t {
         unsigned char ok;
         return static_cast<std::uint64_t>(TWIN(StrToInt64)(h, s, 16, &ok)) * 2u + ok;
       }},
      {"StrToReal", [](unsigned h, const T* s) -> std::uint64_t {
         unsigned char ok;
         const double d = TWIN(StrToReal)(h, s, &ok);
         return static_cast<std::uint64_t>(d > 1e18 ? 1e18 : d) * 2u + ok;
       }},
      {"Copy", [](unsigned h, const T* s) -> std::uint64_t {
         std::vector<T> dst(kLongest + 2, T('#'));
         TWIN(Copy)(kLongest + 1, dst.data(), h, s);
         return Digest(dst);
       }},
      {"Append", [](unsigned h, const T* s) -> std::uint64_t {
         std::vector<T> dst(kLongest + 4, T('#'));
         dst[0] = 'x';
         dst[1] = 0;
         TWIN(Append)(kLongest + 3, dst.data(), h, s);
         return Digest(dst);
       }},
      {"ItemS", [](unsigned h, const T* s) -> std::uint64_t {
         std::vector<T> dst(kLongest + 1, T('#'));
         TWIN(ItemS)(kLongest, dst.data(), h, s, kAll, seps, 1);
         return Digest(dst);
       }},
  };
  if constexpr (sizeof(T) == 1) {
    rows.push_back({"A2U", [](unsigned h, const char* s) -> std::uint64_t {
                      std::vector<WChar> dst(kLongest + 1, WChar('#'));
                      Str::A2U(h, s, kLongest, dst.data());
                      return Digest(dst);
                    }});
  } else {
    rows.push_back({"U2A", [](unsigned h, const WChar* s) -> std::uint64_t {
                      std::vector<char> dst(kLongest + 1, '#');
                      Str::U2A(h, s, kLongest, dst.data());
                      return Digest(dst);
                    }});
  }
  return rows;
}

// Letters for the scans and matches, digits for the parsers.
template <class T>
void FillText(GuardedArray<T>& text, unsigned length, bool digits) {
  for (unsigned i = 0; i < length; ++i) {
    text[i] = static_cast<T>(digits ? '1' + i % 9 : 'a' + i % 26);
  }
  text[length] = T{0};
}

template <class T>
void ExpectAllOnesBoundAgrees() {
  const std::vector<Row<T>> rows = Rows<T>();
  for (const auto& table : RunnableKernelTables()) {
    brelt::scan::UseKernels(*table.kernels);
    width = table.width;
    for (unsigned length = 1; length <= kLongest; ++length) {
      GuardedArray<T> text(length + 1);
      for (bool digits : {false, true}) {
        FillText(text, length, digits);
        for (const Row<T>& row : rows) {
          ASSERT_EQ(row.run(kAll, text.data()), row.run(length, text.data()))
              << row.name << " width " << table.name << " length " << length
              << (digits ? " digits" : " letters");
        }
      }
    }
  }
  brelt::scan::UseKernels(*RunnableKernelTables().back().kernels);
}

TEST(TerminatorReads, AllOnesBoundStopsAtTheNul8) { ExpectAllOnesBoundAgrees<char>(); }
TEST(TerminatorReads, AllOnesBoundStopsAtTheNul16) { ExpectAllOnesBoundAgrees<WChar>(); }

// Areas of `length` bytes whose last byte differs: the first ends right before an unreadable
// page, the second `phase` bytes before the end of its pages, so that their page boundaries
// fall at different places. The stated length runs 100 bytes (or Words) past the end.
TEST(TerminatorReads, ComparesStopAtTheFirstDifference) {
  for (const auto& table : RunnableKernelTables()) {
    const auto compare = BRELT_BODY_AT_WIDTH(table.width, brelt::scan::BlockScans, Compare);
    const auto wordCompare =
        BRELT_BODY_AT_WIDTH(table.width, brelt::scan::BlockScans, WordCompare);
    for (unsigned length = 1; length <= 300; ++length) {
      for (unsigned phase : {0u, 1u, 17u, 40u}) {
        GuardedArray<unsigned char> a(2 * length), b(2 * length + phase);
        for (unsigned i = 0; i < 2 * length; ++i) a[i] = b[i] = static_cast<unsigned char>(i);
        a[2 * length - 1] ^= 1;
        const std::string at = std::string(table.name) + " length " + std::to_string(length) +
                               " phase " + std::to_string(phase);
        ASSERT_EQ(compare(a.data(), b.data(), 2 * length + 100), 2 * length - 1) << at;
        ASSERT_EQ(compare(b.data(), a.data(), 2 * length + 100), 2 * length - 1) << at;
        ASSERT_EQ(wordCompare(a.data(), b.data(), length + 100), length - 1) << at;
      }
    }
  }
}

}  // namespace
