#include "platform/heap.h"

#include <malloc.h>
#include <windows.h>

namespace brelt::platform {

// GlobalSize knows blocks of the process heap. The C runtime's malloc may keep a heap of its
// own (it does under Wine), and then GlobalSize cannot tell; the runtime's own size query
// answers for every block it handed out.
std::uint64_t HeapBlockSize(void* block) {
  if (block == nullptr) return 0;
  const SIZE_T size = GlobalSize(block);
  if (size != 0) return size;
  return _msize(block);
}

void OutOfMemory() {
  MessageBoxA(nullptr, "Not enough memory", "Critical Error", 0x30);
  ExitProcess(0xFFFFFFFFu);
}

}  // namespace brelt::platform
