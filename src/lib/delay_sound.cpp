// Waiting and the speaker. Sound and NoSound are kept for callers written for a speaker that
// could be left on; they do nothing.
#include "brelt/lib/process.h"
#include "platform/sleep.h"
#include "platform/speaker.h"

namespace Lib {

void Delay(unsigned int ms) { brelt::platform::SleepMs(ms); }

void Speaker(unsigned int frequency, unsigned int duration) {
  brelt::platform::SpeakerTone(frequency, duration);
}

void Sound(unsigned int) {}

void NoSound() {}

}  // namespace Lib
