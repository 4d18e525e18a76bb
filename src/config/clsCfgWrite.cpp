#include "config/clsCfgWrite.h"

#include "common/FileOperations.h"
#include "config/CodePage.h"
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
    // A file written in the ANSI code page gets its new text in that code page, so that every
    // line of it stays readable the same way; a character the code page lacks stays UTF-8.
    std::string section = Section, key = Key, text = Value;
    if (!IsValidUtf8(*contents)) {
        for (std::string* part : {&section, &key, &text})
            if (std::optional<std::string> ansi = EncodeAnsiText(*part))
                *part = std::move(*ansi);
    }
    const std::optional<std::string_view> value =
        text.empty() ? std::nullopt : std::optional<std::string_view>(text);
    if (const auto edited = ProfileText::Edit(*contents, section, key, value))
        files_.replaceFile(FileName, *edited);
}

} // namespace vellumar
