// The machine's speaker (Beep).
#pragma once

#include <cstdint>

namespace brelt::platform {

// A tone of `frequency` hertz for `duration` milliseconds; returns when it has ended. False
// where the platform refused it.
bool SpeakerTone(std::uint32_t frequency, std::uint32_t duration);

}  // namespace brelt::platform
