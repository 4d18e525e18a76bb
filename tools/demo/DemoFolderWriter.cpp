#include "demo/DemoFolderWriter.h"

#include "common/FileOperations.h"
#include "common/PathText.h"

#include <utility>

namespace vellumar {

DemoFolderWriter::DemoFolderWriter(FileOperations& files, std::string root)
    : fileOperations_(files)
    , root_(std::move(root))
{}

std::string DemoFolderWriter::path(std::string_view relative) const
{
    std::string native(relative);
    for (char& c : native)
        if (c == '/')
            c = kNativeSeparator;
    return JoinPath(root_, native);
}

bool DemoFolderWriter::folder(std::string_view relative)
{
    if (failed())
        return false;
    if (!fileOperations_.createFolders(path(relative)))
        failure_ = path(relative);
    return !failed();
}

bool DemoFolderWriter::file(std::string_view relative, const std::string& bytes)
{
    if (failed())
        return false;
    if (const std::size_t slash = relative.rfind('/'); slash != std::string_view::npos)
        if (!folder(relative.substr(0, slash)))
            return false;
    if (!fileOperations_.replaceFile(path(relative), bytes)) {
        failure_ = path(relative);
        return false;
    }
    ++files_;
    bytes_ += bytes.size();
    return true;
}

bool DemoFolderWriter::textFile(std::string_view relative, std::string_view text)
{
    return file(relative, WithCrLf(text));
}

std::string WithCrLf(std::string_view text)
{
    std::string result;
    result.reserve(text.size() + text.size() / 20);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            result.push_back('\r');
        result.push_back(text[i]);
    }
    return result;
}

} // namespace vellumar
