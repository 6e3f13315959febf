// Lib::QSort and Lib::HSort: the exact callback sequences of small inputs, compared call by
// call, and random, sorted and all-equal inputs of up to 2000 elements, checked arranged.
#include <brelt/lib.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

// The elements at positions 1 to n, and the calls made: "L(i,j)=T" or "=F", "S(i,j)", or
// "bad(i,j)" for a position outside 1 to n, which touches nothing.
std::vector<int> g_items;
std::vector<std::string> g_calls;
bool g_logging = true;

bool Log(const char* what, unsigned i, unsigned j, const char* answer = "") {
  const bool ok = i >= 1 && j >= 1 && i <= g_items.size() && j <= g_items.size();
  if (g_logging || !ok) {
    g_calls.push_back((ok ? what : "bad") + ("(" + std::to_string(i) + "," + std::to_string(j)) +
                      ")" + answer);
  }
  return ok;
}
unsigned char Less(unsigned i, unsigned j) {
  const bool in = i - 1 < g_items.size() && j - 1 < g_items.size();
  const bool less = in && g_items[i - 1] < g_items[j - 1];
  Log("L", i, j, less ? "=T" : "=F");
  return less;
}
void Swap(unsigned i, unsigned j) {
  if (Log("S", i, j)) std::swap(g_items[i - 1], g_items[j - 1]);
}

using Sort = void (*)(unsigned, Lib::SortLess, Lib::SortSwap);

std::vector<std::string> SortLogged(Sort sort, const std::vector<int>& items, bool logging) {
  g_items = items, g_calls.clear(), g_logging = logging;
  sort(static_cast<unsigned>(items.size()), Less, Swap);
  return g_calls;
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

TEST(LibSort, CallSequences) {
  const Sort Q = Lib::QSort, H = Lib::HSort;
  const struct { Sort sort; std::vector<int> items; const char* log; } rows[] = {
      {Q, {}, ""}, {Q, {7}, ""},
      {Q, {1, 2}, "L(1,2)=T L(1,2)=T"},
      {Q, {2, 1}, "L(1,2)=F S(2,1)"},
      {Q, {3, 1, 2}, "L(1,2)=F L(1,3)=F S(3,1) L(1,2)=F S(2,1)"},
      {Q, {4, 2, 5, 1, 3}, "L(1,2)=F L(1,3)=T L(1,5)=F S(3,5) L(1,4)=F S(4,1) L(1,2)=T "
                           "L(1,3)=T L(1,2)=T L(2,3)=T L(2,3)=T"},
      {Q, {5, 5, 5}, "L(1,2)=F L(1,3)=F S(3,1) L(1,2)=F S(2,1)"},
      {H, {}, ""}, {H, {7}, ""},
      {H, {1, 2}, "L(1,2)=T S(1,2) S(1,2) S(1,1)"},
      {H, {2, 1}, "L(1,2)=F S(1,2) S(1,1)"},
      {H, {3, 1, 2}, "L(2,3)=T L(1,3)=F S(1,3) S(1,2) L(1,2)=T S(2,1) S(1,2) S(1,1)"},
      {H, {5, 5, 5}, "L(2,3)=F L(1,2)=F S(1,3) S(1,2) L(1,2)=F S(1,2) S(1,1)"}};
  for (const auto& r : rows) {
    EXPECT_EQ(SortLogged(r.sort, r.items, true), Words(r.log))
        << (r.sort == Q ? "QSort " : "HSort ") << testing::PrintToString(r.items);
  }
}

// Random, few-valued, sorted, reversed and all-equal inputs come out in order, with the same
// elements and no position outside 1 to n.
TEST(LibSort, ArrangesInputsUpTo2000) {
  std::mt19937 rng(20240611);
  for (Sort sort : {Lib::QSort, Lib::HSort}) {
    for (int n : {2, 3, 4, 5, 7, 8, 9, 16, 17, 33, 100, 255, 1000, 2000}) {
      for (int kind = 0; kind < 5; ++kind) {
        std::vector<int> items(n);
        for (int k = 0; k < n; ++k) {
          const int keys[] = {static_cast<int>(rng() >> 8), static_cast<int>(rng() % 4), k, -k, 9};
          items[k] = keys[kind];
        }
        const auto calls = SortLogged(sort, items, false);
        std::sort(items.begin(), items.end());
        EXPECT_EQ(g_items, items) << (sort == Lib::QSort) << " n " << n << " kind " << kind;
        EXPECT_EQ(calls, std::vector<std::string>()) << n << " kind " << kind;
      }
    }
  }
}

}  // namespace
