#include "config/clsCfgRead.h"

#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/ResultText.h"
#include "config/CodePage.h"
#include "config/ProfileText.h"

#include <optional>

namespace vellumar {

clsCfgRead::clsCfgRead(FileOperations& files, MessageService& messages)
    : files_(files)
    , messages_(messages)
{}

std::string clsCfgRead::Data()
{
    if (IsError(FileExists(files_, FileName))) {
        messages_.ShowMessage("Filename is not correctly. this is bug!!",
                              MessageStyle::OKOnly | MessageStyle::Critical, "Class cfgRead");
        return {};
    }
    return DataOf(ProfileText::ProfileDocument(files_.readFile(FileName).value_or(std::string())),
                  Section, Key);
}

std::string clsCfgRead::DataOf(const ProfileText::ProfileDocument& document,
                               const std::string& section, const std::string& key)
{
    const std::string missing(kError);
    // The program asks and answers in UTF-8, whatever the file is written in.
    if (!section.empty() && !key.empty()) {
        std::string value = document.Read(section, key, missing, kBufferSize);
        if (value == missing) {
            // A file in the ANSI code page holds a name outside ASCII in that code page.
            const std::optional<std::string> ansiSection = EncodeAnsiText(section);
            const std::optional<std::string> ansiKey = EncodeAnsiText(key);
            if (ansiSection && ansiKey && (*ansiSection != section || *ansiKey != key))
                value = document.Read(*ansiSection, *ansiKey, missing, kBufferSize);
        }
        return DecodeAnsiText(value);
    }

    std::string list = section.empty()
                           ? document.Read(std::nullopt, std::nullopt, missing, kBufferSize)
                           : document.Read(section, std::nullopt, missing, kBufferSize);
    // A list ends with the terminator of its last name; a default that stands in for an empty
    // list has none to remove.
    if (!list.empty() && list.back() == '\0')
        list.pop_back();
    return DecodeAnsiText(list);
}

} // namespace vellumar
