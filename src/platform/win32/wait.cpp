#include "platform/wait.h"

#include <windows.h>

namespace brelt::platform {

bool MessageQueueEmpty() {
  // 255: key, mouse-move, mouse-button, posted, timer, paint, sent and hot-key input.
  if ((GetQueueStatus(255) >> 16) != 0) return false;
  MSG msg;
  return PeekMessageA(&msg, nullptr, 0, 0, PM_NOREMOVE) == 0;
}

std::uint32_t WaitForHandlesOrInput(std::uint32_t count, void** handles, std::uint32_t timeout,
                                    std::uint32_t wakeMask, std::uint32_t flags) {
  return MsgWaitForMultipleObjectsEx(count, reinterpret_cast<HANDLE*>(handles), timeout,
                                     wakeMask, flags);
}

}  // namespace brelt::platform
