// The shared generator: its table after seeding, the sequences of RANDOM and RAND after a seed
// and from a table never seeded, the lag that every draw keeps, seeding from the clock, and
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

// Leading minus lagging index, modulo 55.
unsigned Lag(const RandomSnapshot& s) { return (s.indexA + 55 - s.indexB) % 55; }

TEST(LibRandomSeed, TableAndIndices) {
  using Words = std::vector<std::pair<unsigned, std::uint32_t>>;
  const struct { std::uint32_t seed; Words words; } rows[] = {
      {1, {{0, 47936}, {1, 4804}, {2, 14241}, {22, 26360}, {23, 57646}, {53, 49493}, {54, 50055}}},
      {0, {{0, 0}, {1, 28495}}},
      {12345, {{23, 5657}, {54, 3026}}},
  };
  for (const auto& r : rows) {
    SeedRandom(r.seed);
    const RandomSnapshot s = ReadRandomState();
    EXPECT_EQ(s.indexA, 54u) << r.seed;
    EXPECT_EQ(s.indexB, 23u) << r.seed;
    for (const auto& [i, want] : r.words) EXPECT_EQ(s.table[i], want) << r.seed << " [" << i << "]";
    EXPECT_TRUE(std::all_of(s.table, s.table + kRandomTableSize,
                            [](std::uint32_t w) { return w <= 0xFFFF; }))
        << "seeding leaves 16-bit words, seed " << r.seed;
  }
}

TEST(LibRandom, SequencesAfterSeeding) {
  const struct { std::uint32_t seed; unsigned range; Values want; } rows[] = {
      {1, 0, {75853, 112665, 17551, 53852, 79310}},
      {1, 100, {53, 65, 51, 52, 10}},
      {0, 0, {38029, 68179, 18483}},
      {12345, 0, {32068, 70994, 49645}},
  };
  for (const auto& r : rows) {
    SeedRandom(r.seed);
    EXPECT_EQ(Draws(static_cast<unsigned>(r.want.size()), r.range), r.want)
        << "seed " << r.seed << " range " << r.range;
  }
}

TEST(LibRandom, RandAfterSeedOne) {
  SeedRandom(1);
  const double want[] = {0.15745115889176986, 0.26781954529411617, 0.21019604341364373};
  for (double w : want) EXPECT_EQ(Lib::RAND(), w);
}

// A table and indices all 0 seed themselves with 12345 at the first draw, which then uses
// words [23] and [54] of that table rather than stepping first.
TEST(LibRandom, NeverSeededStartsFrom12345) {
  ClearRandomState();
  EXPECT_EQ(Draws(6, 0), (Values{8683, 32068, 70994, 49645, 95759, 22801}));
  SeedRandom(12345);
  const RandomSnapshot seeded = ReadRandomState();
  ClearRandomState();
  Lib::RANDOM(0);
  const RandomSnapshot drawn = ReadRandomState();
  EXPECT_EQ(drawn.indexA, 54u);
  EXPECT_EQ(drawn.indexB, 23u);
  EXPECT_EQ(drawn.table[54], 8683u);
  EXPECT_TRUE(std::equal(drawn.table, drawn.table + 54, seeded.table));
}

// Every draw steps both indices down, wrapping from 0 to 54, and writes the leading word only.
TEST(LibRandom, DrawsKeepTheLag) {
  SeedRandom(99);
  RandomSnapshot before = ReadRandomState();
  for (unsigned k = 1; k <= 110; ++k) {
    Lib::RANDOM(0);
    const RandomSnapshot s = ReadRandomState();
    ASSERT_EQ(Lag(s), 31u) << "draw " << k;
    ASSERT_EQ(s.indexA, (before.indexA + 54) % 55) << "draw " << k;
    for (unsigned i = 0; i < kRandomTableSize; ++i) {
      if (i == s.indexA) continue;
      ASSERT_EQ(s.table[i], before.table[i]) << "draw " << k << " [" << i << "]";
    }
    ASSERT_EQ(s.table[s.indexA], before.table[s.indexA] + before.table[s.indexB]) << "draw " << k;
    before = s;
  }
  EXPECT_EQ(before.indexA, 54u);
  EXPECT_EQ(before.indexB, 23u);
}

// RANDOMIZE seeds with the clock's second times its millisecond: its table is that of one of
// the seeds that readings taken just before and after allow.
TEST(LibRandomize, SeedsFromSecondTimesMillisecond) {
  for (int attempt = 0; attempt < 20; ++attempt) {
    _SYSTEMTIME before, after;
    brelt::platform::UtcTimeFields(&before);
    Lib::RANDOMIZE();
    brelt::platform::UtcTimeFields(&after);
    if (before.wSecond != after.wSecond) continue;  // the second turned meanwhile
    const RandomSnapshot got = ReadRandomState();
    bool found = false;
    for (unsigned ms = before.wMilliseconds; ms <= after.wMilliseconds && !found; ++ms) {
      SeedRandom(before.wSecond * ms);
      const RandomSnapshot s = ReadRandomState();
      found = std::equal(s.table, s.table + kRandomTableSize, got.table) &&
              s.indexA == got.indexA && s.indexB == got.indexB;
    }
    EXPECT_TRUE(found) << "second " << before.wSecond << ", ms " << before.wMilliseconds
                       << " to " << after.wMilliseconds;
    return;
  }
  FAIL() << "the clock's second kept turning";
}

// Threads drawing at once get between them exactly the numbers one thread would have drawn,
// and leave the generator where that thread would have left it.
TEST(LibRandom, ThreadsLoseNoDraw) {
  constexpr unsigned kThreads = 4, kEach = 20000;
  SeedRandom(4242);
  const Values serial = Draws(kThreads * kEach, 0);
  const std::uint32_t serialNext = Lib::RANDOM(0);

  SeedRandom(4242);
  std::vector<Values> drawn(kThreads);
  std::vector<std::thread> threads;
  for (unsigned t = 0; t < kThreads; ++t) {
    threads.emplace_back([&drawn, t] { drawn[t] = Draws(kEach, 0); });
  }
  for (auto& th : threads) th.join();
  Values all;
  for (const Values& d : drawn) all.insert(all.end(), d.begin(), d.end());
  Values want = serial;
  std::sort(all.begin(), all.end());
  std::sort(want.begin(), want.end());
  EXPECT_TRUE(all == want) << "the threads' draws differ from one thread's";
  EXPECT_EQ(Lib::RANDOM(0), serialNext);
}

}  // namespace
