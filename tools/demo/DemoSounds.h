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
std::string RainWave();                // rain drumming on the canopy, channel 2's second sound
std::string LittleWaltzWave();         // a tune of bells in three-four time for the music list

// The tracks of the demo's audio CD, 1 to 3: a little tune each, a few seconds long, as a disc
// holds its audio: 44100 Hz, 16-bit stereo, little-endian, left before right, a whole number of
// 2352-byte sectors. 1 morning bells, 2 a waltz of soft tones over a plucked bass, 3 a music
// box at night.
std::string CdTrackAudio(int number);

} // namespace vellumar::demo
