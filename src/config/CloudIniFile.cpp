#include "config/CloudIniFile.h"

#include "config/IniValue.h"
#include "config/clsCfgRead.h"
#include "config/clsCfgWrite.h"

namespace vellumar {

CloudIniFile::CloudIniFile(FileOperations& files, MessageService& messages, std::string path)
    : files_(files)
    , messages_(messages)
    , path_(std::move(path))
{}

std::string CloudIniFile::ReadRaw(const std::string& section, const std::string& key) const
{
    if (consistentReads_ > 0 && cached_)
        return clsCfgRead::DataOf(*cached_, section, key);
    if (const std::optional<FileTime> stamp = files_.modificationTime(path_)) {
        if (!cached_ || cachedStamp_ != *stamp) {
            cached_.reset();
            if (std::optional<std::string> contents = files_.readFile(path_)) {
                cached_.emplace(std::move(*contents));
                cachedStamp_ = *stamp;
            }
        }
        if (cached_)
            return clsCfgRead::DataOf(*cached_, section, key);
    }
    // Missing or unreadable: the reader reports it as the program fault it is.
    clsCfgRead reader(files_, messages_);
    reader.FileName = path_;
    reader.Section = section;
    reader.Key = key;
    return reader.Data();
}

std::string CloudIniFile::ReadIniValue(const std::string& section, const std::string& key) const
{
    return StripIniComment(ReadRaw(section, key));
}

void CloudIniFile::Write(const std::string& section, const std::string& key,
                         const std::string& value)
{
    clsCfgWrite writer(files_);
    writer.FileName = path_;
    writer.Section = section;
    writer.Key = key;
    writer.Value = value;
    writer.cWrite();
    cached_.reset();
    RecordTimeStamp();
}

std::optional<std::string> CloudIniFile::Contents() const
{
    return files_.readFile(path_);
}

bool CloudIniFile::WriteContents(const std::string& contents)
{
    const bool written = files_.replaceFile(path_, contents);
    cached_.reset();
    RecordTimeStamp();
    return written;
}

void CloudIniFile::RecordTimeStamp()
{
    stamp_ = files_.modificationTime(path_).value_or(0);
    length_ = files_.readFile(path_).value_or(std::string()).size();
}

bool CloudIniFile::ChangedByOthers() const
{
    return files_.modificationTime(path_).value_or(0) != stamp_ ||
           files_.readFile(path_).value_or(std::string()).size() != length_;
}

} // namespace vellumar
