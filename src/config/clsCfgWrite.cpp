#include "config/clsCfgWrite.h"

#include "common/FileOperations.h"
#include "config/ProfileText.h"

#include <optional>

namespace vellumar {

clsCfgWrite::clsCfgWrite(FileOperations& files)
    : files_(files)
{}

void clsCfgWrite::cWrite()
{
    std::optional<std::string> contents = files_.readFile(FileName);
    if (!contents) {
        // A file that exists but cannot be read must not be replaced by a fresh one.
        if (files_.attributes(FileName))
            return;
        contents.emplace();
    }
    const std::optional<std::string_view> value =
        Value.empty() ? std::nullopt : std::optional<std::string_view>(Value);
    if (const auto edited = ProfileText::Edit(*contents, Section, Key, value))
        files_.replaceFile(FileName, *edited);
}

} // namespace vellumar
