#pragma once

#include <string>

namespace vellumar {

class FileOperations;
class MessageService;
namespace ProfileText {
class ProfileDocument;
}

// Reads one value, the key list of a section, or the section list of a profile file. Used as a
// short-lived object: set the properties, call Data().
class clsCfgRead {
public:
    clsCfgRead(FileOperations& files, MessageService& messages);

    std::string FileName; // full path of the profile file
    std::string Section;  // "" lists the sections
    std::string Key;      // "" lists the keys of Section

    // The value ("Error" when the key is absent), or the NUL-separated list of keys or
    // sections. A missing file is reported as a program fault and gives "".
    std::string Data();

    // The size of the buffer the value is read into; longer values are cut to one less.
    static constexpr std::size_t kBufferSize = 2048;

    // What Data() answers for a file that exists, from its parsed contents.
    static std::string DataOf(const ProfileText::ProfileDocument& document,
                              const std::string& section, const std::string& key);

private:
    FileOperations& files_;
    MessageService& messages_;
};

} // namespace vellumar
