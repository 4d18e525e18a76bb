#pragma once

#include <string>
#include <vector>

namespace vellumar::demo {

// A mono 16-bit PCM WAVE file; samples run from -1 to 1 and are clipped beyond.
std::string EncodeWave(const std::vector<float>& samples, int sampleRate);

// The short sounds of the demo, each a complete WAVE file. Generated, so every run gives the
// same bytes.
std::string ButtonClickWave();         // a dry click for the program's buttons
std::string AutoRandomChimeWave();     // two rising bell tones for an AutoRandom install
std::string SystemEventWave(int kind); // the system event sounds: 0 asterisk, 1 exclamation,
                                       // 2 question, 3 critical stop
std::string ThunderWave();             // a distant rumble, the simulator's own thunder sound
std::string ChannelWave(int channel);  // a few seconds for each media channel: 1 engine drone,
                                       // 2 wind, 3 tower chime

} // namespace vellumar::demo
