// The shared generator: its table after seeding, the sequences of RANDOM and RAND after a seed
// and from a table never seeded, the lag kept over a full turn, seeding from the clock, and
// draws from several threads at once, none lost or repeated.
#include <brelt/lib.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <thread>
#include <vector>

#include "lib/random_state.h"
#include "platform/system_time.h"

namespace {

using namespace brelt::lib;
using Values = std::vector<std::uint32_t>;

Values Draws(unsigned count, unsigned range) {
  Values out;
  for (unsigned i = 0; i < count; ++i) out.push_back(Lib::RANDOM(range));
  return out;
}

bool SameState(const RandomSnapshot& a, const RandomSnapshot& b) {
  return std::equal(a.table, a.table + kRandomTableSize, b.table) && a.indexA == b.indexA &&
         a.indexB == b.indexB;
}

// Seeding leaves the indices at 54 and 23 and 16-bit words; the draws step before each use.
TEST(LibRandom, SeedsAndSequences) {
  using Words = std::vector<std::pair<unsigned, std::uint32_t>>;
  const struct { std::uint32_t seed; Words words; unsigned range; Values draws; } rows[] = {
      {1, {{0, 47936}, {1, 4804}, {2, 14241}, {22, 26360}, {23, 57646}, {53, 49493}, {54, 50055}},
       0, {75853, 112665, 17551, 53852, 79310}},
      {1, {}, 100, {53, 65, 51, 52, 10}},
      {0, {{0, 0}, {1, 28495}}, 0, {38029, 68179, 18483}},
      {12345, {{23, 5657}, {54, 3026}}, 0, {32068, 70994, 49645}}};
  for (const auto& r : rows) {
    SeedRandom(r.seed);
    const RandomSnapshot s = ReadRandomState();
    EXPECT_TRUE(s.indexA == 54 && s.indexB == 23) << r.seed;
    for (const auto& [i, want] : r.words) EXPECT_EQ(s.table[i], want) << r.seed << " [" << i << "]";
    EXPECT_LE(*std::max_element(s.table, s.table + kRandomTableSize), 0xFFFFu) << r.seed;
    EXPECT_EQ(Draws(static_cast<unsigned>(r.draws.size()), r.range), r.draws) << r.seed;
    Draws(55 - static_cast<unsigned>(r.draws.size()), 0);  // a full turn keeps the lag
    EXPECT_TRUE(ReadRandomState().indexA == 54 && ReadRandomState().indexB == 23) << r.seed;
  }
  SeedRandom(1);
  for (double want : {0.15745115889176986, 0.26781954529411617, 0.21019604341364373}) {
    EXPECT_EQ(Lib::RAND(), want);
  }
}

// Table and indices all 0 are seeded with 12345 at the first draw, which then adds words [23]
// and [54] of that table without stepping first.
TEST(LibRandom, NeverSeededStartsFrom12345) {
  ClearRandomState();
  EXPECT_EQ(Draws(6, 0), (Values{8683, 32068, 70994, 49645, 95759, 22801}));
  SeedRandom(12345);
  RandomSnapshot want = ReadRandomState();
  want.table[54] = 8683;
  ClearRandomState();
  Lib::RANDOM(0);
  EXPECT_TRUE(SameState(ReadRandomState(), want));
}

// RANDOMIZE seeds with the clock's second times its millisecond, as read just before and after.
TEST(LibRandom, RandomizeSeedsFromTheClock) {
  _SYSTEMTIME before, after;
  do {
    brelt::platform::UtcTimeFields(&before);
    Lib::RANDOMIZE();
    brelt::platform::UtcTimeFields(&after);
  } while (before.wSecond != after.wSecond);
  const RandomSnapshot got = ReadRandomState();
  bool found = false;
  for (unsigned ms = before.wMilliseconds; ms <= after.wMilliseconds && !found; ++ms) {
    SeedRandom(before.wSecond * ms);
    found = SameState(ReadRandomState(), got);
  }
  EXPECT_TRUE(found) << before.wSecond << "s " << before.wMilliseconds << "ms";
}

// Threads drawing at once get between them exactly the numbers one thread would have drawn,
// and leave the generator where that thread would have left it.
TEST(LibRandom, ThreadsLoseNoDraw) {
  constexpr unsigned kThreads = 4, kEach = 20000;
  SeedRandom(4242);
  Values want = Draws(kThreads * kEach, 0);
  const RandomSnapshot end = ReadRandomState();
  SeedRandom(4242);
  std::vector<Values> drawn(kThreads);
  std::vector<std::thread> threads;
  for (unsigned t = 0; t < kThreads; ++t) {
    threads.emplace_back([&drawn, t] { drawn[t] = Draws(kEach, 0); });
  }
  for (auto& th : threads) th.join();
  Values all;
  for (const Values& d : drawn) all.insert(all.end(), d.begin(), d.end());
  std::sort(all.begin(), all.end());
  std::sort(want.begin(), want.end());
  EXPECT_TRUE(all == want);
  EXPECT_TRUE(SameState(ReadRandomState(), end));
}

}  // namespace
