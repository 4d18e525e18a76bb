#pragma once

#include "common/FileOperations.h"
#include "config/ProfileText.h"

#include <optional>
#include <string>

namespace vellumar {

class MessageService;

// cloud.ini as the program uses it: values read with their comments stripped, single keys
// written back, and the time stamp of the program's own last look at the file, so that an edit
// made by someone else while the program runs is noticed.
class CloudIniFile {
public:
    CloudIniFile(FileOperations& files, MessageService& messages, std::string path);

    const std::string& path() const { return path_; }

    // The value of a key with everything from the first "'" removed; "Error" when absent.
    std::string ReadIniValue(const std::string& section, const std::string& key) const;
    // The raw reader's answer, for lists of keys or sections.
    std::string ReadRaw(const std::string& section, const std::string& key) const;

    // Writes (or, with an empty value, deletes) one key and takes the new time stamp.
    void Write(const std::string& section, const std::string& key, const std::string& value);

    // The file's bytes, for edits of more than one key (ProfileText); nothing when unreadable.
    std::optional<std::string> Contents() const;
    // Replaces the whole file in one step with such an edit and takes the new time stamp.
    bool WriteContents(const std::string& contents);

    // While one lives, reads take the file as it was when the first of them read it, without
    // looking at its time stamp again for every key: a load of hundreds of keys sees one
    // version of the file, never half of an edit saved meanwhile. A write through this object
    // still shows at once.
    class ConsistentRead {
    public:
        explicit ConsistentRead(const CloudIniFile& ini)
            : ini_(ini)
        {
            ++ini_.consistentReads_;
        }
        ~ConsistentRead() { --ini_.consistentReads_; }
        ConsistentRead(const ConsistentRead&) = delete;
        ConsistentRead& operator=(const ConsistentRead&) = delete;

    private:
        const CloudIniFile& ini_;
    };

    // Takes the file's current time stamp as the program's own.
    void RecordTimeStamp();
    FileTime IniTimeStamp() const { return stamp_; }
    // True when the file's time stamp (or, for an edit within the same tick of the file
    // system's clock, its length) differs from the one recorded.
    bool ChangedByOthers() const;

private:
    FileOperations& files_;
    MessageService& messages_;
    std::string path_;
    FileTime stamp_ = 0;
    std::size_t length_ = 0;
    // The file as last read, kept while its time stamp stays: a load asks for thousands of
    // values. The program's own writes drop it.
    mutable std::optional<ProfileText::ProfileDocument> cached_;
    mutable FileTime cachedStamp_ = 0;
    mutable int consistentReads_ = 0;
};

} // namespace vellumar
