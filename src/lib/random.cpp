// The process's additive generator: 55 words, each draw adding the word at the lagging index
// to the one at the leading index. All threads share it, under a spin lock that yields the
// processor while another thread holds it; the lock is never held across caller code.
#include <atomic>
#include <cstdint>

#include "brelt/lib/random.h"
#include "lib/random_state.h"
#include "platform/sleep.h"
#include "platform/system_time.h"

namespace brelt::lib {
namespace {

std::uint32_t g_table[kRandomTableSize];
std::uint32_t g_indexA;  // the word written by each draw
std::uint32_t g_indexB;  // the word added to it, 31 places behind modulo 55 once seeded
std::atomic<std::uint32_t> g_lock{0};

constexpr std::uint32_t kMultiplier = 0x44BF19D3;
constexpr std::uint32_t kUnseededSeed = 12345;

void Lock() {
  std::uint32_t free = 0;
  while (!g_lock.compare_exchange_strong(free, 1, std::memory_order_acquire,
                                         std::memory_order_relaxed)) {
    free = 0;
    platform::YieldThread();
  }
}

// A release store frees it as an exchange would: only the holder ever writes 1 back to 0.
void Unlock() { g_lock.store(0, std::memory_order_release); }

// Under the lock. The table starts out with 16-bit values.
void Fill(std::uint32_t seed) {
  g_indexA = 54;
  g_indexB = 23;
  std::uint32_t x = seed;
  for (std::uint32_t& word : g_table) {
    x = 17u - x * kMultiplier;
    word = x >> 16;
  }
}

}  // namespace

void FreeRandomLock() { g_lock.store(0, std::memory_order_release); }

void SeedRandom(std::uint32_t seed) {
  Lock();
  Fill(seed);
  Unlock();
}

RandomSnapshot ReadRandomState() {
  RandomSnapshot s;
  Lock();
  for (unsigned i = 0; i < kRandomTableSize; ++i) s.table[i] = g_table[i];
  s.indexA = g_indexA;
  s.indexB = g_indexB;
  Unlock();
  return s;
}

void ClearRandomState() {
  Lock();
  for (std::uint32_t& word : g_table) word = 0;
  g_indexA = 0;
  g_indexB = 0;
  Unlock();
}

}  // namespace brelt::lib

namespace Lib {

using namespace brelt::lib;

unsigned int RANDOM(unsigned int range) {
  Lock();
  if (g_indexA != 0) {
    --g_indexA;
    g_indexB = g_indexB == 0 ? 54 : g_indexB - 1;
  } else if (g_indexB != 0) {
    g_indexA = 54;
    --g_indexB;
  } else {
    // Both at 0 only before the first seeding.
    Fill(kUnseededSeed);
  }
  const std::uint32_t v = g_table[g_indexB] + g_table[g_indexA];
  g_table[g_indexA] = v;
  Unlock();
  return range != 0 ? v % range : v;
}

double RAND() {
  const std::uint32_t h = RANDOM(65535);
  const std::uint32_t l = RANDOM(65535);
  // Over 2^32 - 1, not 2^32; w is at most 0xFFFEFFFE, so the result stays below 1.
  return static_cast<double>(h * 65536u + l) * 2.3283064370807974e-10;
}

void RANDOMIZE() {
  _SYSTEMTIME now;
  brelt::platform::UtcTimeFields(&now);
  SeedRandom(std::uint32_t{now.wSecond} * now.wMilliseconds);
}

}  // namespace Lib
