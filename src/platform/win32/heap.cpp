#include "platform/heap.h"

#include <windows.h>

namespace brelt::platform {

std::uint64_t HeapBlockSize(void* block) {
  if (block == nullptr) return 0;
  return GlobalSize(block);
}

void OutOfMemory() {
  MessageBoxA(nullptr, "Not enough memory", "Critical Error", 0x30);
  ExitProcess(0xFFFFFFFFu);
}

}  // namespace brelt::platform
