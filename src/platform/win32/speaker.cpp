#include "platform/speaker.h"

#include <windows.h>

namespace brelt::platform {

bool SpeakerTone(std::uint32_t frequency, std::uint32_t duration) {
  return Beep(frequency, duration) != 0;
}

}  // namespace brelt::platform
