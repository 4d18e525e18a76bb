#pragma once

#include <cstdint>
#include <string>

namespace vellumar {

class FileOperations;
class WavePlayer;

// Plays one wave file without waiting for it. Used as a short-lived object: set FileName, call
// Play, look at the error flag.
class clsPlaySound {
public:
    std::string FileName;
    bool ErrorFlag = false;
    std::uint8_t ErrorCode = 0; // 1: the file does not exist

    void Play(FileOperations& files, WavePlayer& player);
};

} // namespace vellumar
