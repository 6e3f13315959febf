// Lib::QSort and Lib::HSort: the exact callback sequences of small inputs, compared call by
// call, and random, sorted and all-equal inputs of up to 2000 elements, checked arranged.
#include <brelt/lib.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

// The elements the callbacks see, at positions 1 to n, and every call made, as "L(i,j)=T",
// "L(i,j)=F" or "S(i,j)". A position outside 1 to n is logged as such and touches nothing.
std::vector<int> g_items;
std::vector<std::string> g_calls;
bool g_logging = true;

bool InRange(unsigned i, unsigned j) {
  const bool ok = i >= 1 && j >= 1 && i <= g_items.size() && j <= g_items.size();
  if (!ok) g_calls.push_back("out of range " + std::to_string(i) + "," + std::to_string(j));
  return ok;
}

std::string Pair(unsigned i, unsigned j) {
  return "(" + std::to_string(i) + "," + std::to_string(j) + ")";
}

unsigned char Less(unsigned i, unsigned j) {
  if (!InRange(i, j)) return 0;
  const bool less = g_items[i - 1] < g_items[j - 1];
  if (g_logging) g_calls.push_back("L" + Pair(i, j) + (less ? "=T" : "=F"));
  return less;
}

void Swap(unsigned i, unsigned j) {
  if (!InRange(i, j)) return;
  std::swap(g_items[i - 1], g_items[j - 1]);
  if (g_logging) g_calls.push_back("S" + Pair(i, j));
}

using Sort = void (*)(unsigned, Lib::SortLess, Lib::SortSwap);

std::vector<std::string> Trace(Sort sort, const std::vector<int>& items) {
  g_items = items;
  g_calls.clear();
  g_logging = true;
  sort(static_cast<unsigned>(items.size()), Less, Swap);
  return g_calls;
}

std::vector<std::string> Split(const std::string& calls) {
  std::vector<std::string> out;
  for (std::size_t start = 0; start < calls.size();) {
    const std::size_t end = std::min(calls.find(' ', start), calls.size());
    out.push_back(calls.substr(start, end - start));
    start = end + 1;
  }
  return out;
}

TEST(LibSort, CallSequences) {
  const struct { const char* name; Sort sort; std::vector<int> items; const char* log; } rows[] = {
      {"QSort", Lib::QSort, {}, ""},
      {"QSort", Lib::QSort, {7}, ""},
      {"QSort", Lib::QSort, {1, 2}, "L(1,2)=T L(1,2)=T"},
      {"QSort", Lib::QSort, {2, 1}, "L(1,2)=F S(2,1)"},
      {"QSort", Lib::QSort, {3, 1, 2}, "L(1,2)=F L(1,3)=F S(3,1) L(1,2)=F S(2,1)"},
      {"QSort", Lib::QSort, {4, 2, 5, 1, 3},
       "L(1,2)=F L(1,3)=T L(1,5)=F S(3,5) L(1,4)=F S(4,1) L(1,2)=T L(1,3)=T L(1,2)=T L(2,3)=T "
       "L(2,3)=T"},
      {"QSort", Lib::QSort, {5, 5, 5}, "L(1,2)=F L(1,3)=F S(3,1) L(1,2)=F S(2,1)"},
      {"HSort", Lib::HSort, {}, ""},
      {"HSort", Lib::HSort, {7}, ""},
      {"HSort", Lib::HSort, {1, 2}, "L(1,2)=T S(1,2) S(1,2) S(1,1)"},
      {"HSort", Lib::HSort, {2, 1}, "L(1,2)=F S(1,2) S(1,1)"},
      {"HSort", Lib::HSort, {3, 1, 2},
       "L(2,3)=T L(1,3)=F S(1,3) S(1,2) L(1,2)=T S(2,1) S(1,2) S(1,1)"},
      {"HSort", Lib::HSort, {5, 5, 5}, "L(2,3)=F L(1,2)=F S(1,3) S(1,2) L(1,2)=F S(1,2) S(1,1)"},
  };
  for (const auto& r : rows) {
    EXPECT_EQ(Trace(r.sort, r.items), Split(r.log))
        << r.name << " of " << testing::PrintToString(r.items);
  }
}

// Random, few-valued, sorted, reversed and all-equal inputs of up to 2000 elements come out in
// order and hold the same elements; a callback with a position outside 1 to n is reported.
TEST(LibSort, ArrangeRandomSortedAndEqualInputs) {
  std::mt19937 rng(20240611);
  const struct { const char* name; Sort sort; } sorts[] = {{"QSort", Lib::QSort},
                                                           {"HSort", Lib::HSort}};
  const unsigned sizes[] = {2, 3, 4, 5, 6, 7, 8, 9, 15, 16, 17, 31, 32, 33, 100, 255, 1000, 2000};
  enum Kind { kRandom, kFewValues, kSorted, kReversed, kAllEqual };
  g_logging = false;
  for (const auto& s : sorts) {
    for (unsigned n : sizes) {
      for (Kind kind : {kRandom, kFewValues, kSorted, kReversed, kAllEqual}) {
        std::vector<int> items(n);
        for (unsigned k = 0; k < n; ++k) {
          const int key = kind == kRandom      ? static_cast<int>(rng() >> 8)
                          : kind == kFewValues ? static_cast<int>(rng() % 4)
                          : kind == kSorted    ? static_cast<int>(k)
                          : kind == kReversed  ? static_cast<int>(n - k)
                                               : 9;
          items[k] = key;
        }
        g_items = items;
        g_calls.clear();
        s.sort(n, Less, Swap);
        std::vector<int> want = items;
        std::sort(want.begin(), want.end());
        EXPECT_EQ(g_items, want) << s.name << " n " << n << " kind " << kind;
        EXPECT_TRUE(g_calls.empty()) << s.name << " " << g_calls.front();
      }
    }
  }
  g_logging = true;
}

}  // namespace
