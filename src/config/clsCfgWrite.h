#pragma once

#include <string>

namespace vellumar {

class FileOperations;

// Writes or deletes one key of a profile file. Used as a short-lived object: set the
// properties, call cWrite().
class clsCfgWrite {
public:
    explicit clsCfgWrite(FileOperations& files);

    std::string FileName;
    std::string Section;
    std::string Key;
    std::string Value; // "" deletes the key

    // Creates the file and the section when missing. Every other byte of the file stays as it
    // was, and the file is replaced in one step, so a crash never leaves it half written.
    // Failures are not reported.
    void cWrite();

private:
    FileOperations& files_;
};

} // namespace vellumar
