// There is no speaker to drive here: the tone takes its time in silence, so that a caller
// paced by its tones keeps its pace, and is reported as not sounded.
#include "platform/speaker.h"

#include "platform/last_error.h"
#include "platform/posix/errors.h"
#include "platform/sleep.h"

namespace brelt::platform {

bool SpeakerTone(std::uint32_t /*frequency*/, std::uint32_t duration) {
  SleepMs(duration);
  return posix::Fail(kErrorInvalidFunction);
}

}  // namespace brelt::platform
