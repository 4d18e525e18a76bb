#include "clsCfgRead.h"

#include "FileHelpers.h"
#include "FileOperations.h"
#include "MessageService.h"
#include "ProfileText.h"
#include "ResultText.h"

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
    const std::string contents = files_.readFile(FileName).value_or(std::string());
    const std::string missing(kError);

    if (!Section.empty() && !Key.empty())
        return ProfileText::Read(contents, Section, Key, missing, kBufferSize);

    std::string list =
        Section.empty()
            ? ProfileText::Read(contents, std::nullopt, std::nullopt, missing, kBufferSize)
            : ProfileText::Read(contents, Section, std::nullopt, missing, kBufferSize);
    // A list ends with the terminator of its last name; a default that stands in for an empty
    // list has none to remove.
    if (!list.empty() && list.back() == '\0')
        list.pop_back();
    return list;
}

} // namespace vellumar
