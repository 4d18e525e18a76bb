#include "support/TempFolder.h"

#include "common/PathText.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vellumar::test {

namespace fs = std::filesystem;

namespace {

std::string Native(std::string_view relative)
{
    std::string native(relative);
    for (char& c : native)
        if (c == '/')
            c = kNativeSeparator;
    return native;
}

void MakeWritable(const fs::path& root)
{
    std::error_code error;
    fs::permissions(root, fs::perms::owner_write, fs::perm_options::add, error);
    for (fs::recursive_directory_iterator it(root, error), end; !error && it != end;
         it.increment(error))
        fs::permissions(it->path(), fs::perms::owner_write, fs::perm_options::add, error);
}

} // namespace

TempFolder::TempFolder()
{
    static std::atomic<unsigned> counter{0};
    const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    const fs::path folder = fs::temp_directory_path() / ("vellumar-test-" + std::to_string(stamp) +
                                                         "-" + std::to_string(++counter));
    fs::create_directories(folder);
    path_ = folder.string();
}

TempFolder::~TempFolder()
{
    std::error_code error;
    MakeWritable(path_);
    fs::remove_all(path_, error);
}

std::string TempFolder::operator/(std::string_view relative) const
{
    return JoinPath(path_, Native(relative));
}

std::string TempFolder::write(std::string_view relative, std::string_view contents) const
{
    const std::string full = *this / relative;
    fs::create_directories(Utf8Path(full).parent_path());
    WriteWholeFile(full, contents);
    return full;
}

std::string TempFolder::makeFolder(std::string_view relative) const
{
    const std::string full = *this / relative;
    fs::create_directories(Utf8Path(full));
    return full;
}

std::string TempFolder::read(std::string_view relative) const
{
    return ReadWholeFile(*this / relative);
}

fs::path Utf8Path(const std::string& path)
{
    // The program's paths are UTF-8; a narrow path on Windows would be read in the ANSI code
    // page, and a name beyond it would name another file.
    return fs::path(std::u8string(path.begin(), path.end()));
}

std::string ReadWholeFile(const std::string& path)
{
    std::ifstream in(Utf8Path(path), std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + path);
    std::ostringstream contents;
    contents << in.rdbuf();
    return contents.str();
}

void WriteWholeFile(const std::string& path, std::string_view contents)
{
    std::ofstream out(Utf8Path(path), std::ios::binary | std::ios::trunc);
    if (!out)
        throw std::runtime_error("cannot write " + path);
    out.write(contents.data(), static_cast<std::streamsize>(contents.size()));
}

} // namespace vellumar::test
