#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vellumar::test {

// A fresh folder under the system's temporary folder, removed with everything in it when the
// test ends (read-only files included).
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& path() const { return path_; }
    // path() + native separator + relative (whose "/" become native separators).
    std::string operator/(std::string_view relative) const;

    // Writes a file (creating its folders) with exactly these bytes; returns its full path.
    std::string write(std::string_view relative, std::string_view contents = "x") const;
    std::string makeFolder(std::string_view relative) const;
    std::string read(std::string_view relative) const;

private:
    std::string path_;
};

// Reads or writes a whole file by full path, bytes as they are.
// A UTF-8 path as the standard library's file functions take it on every platform.
std::filesystem::path Utf8Path(const std::string& path);

std::string ReadWholeFile(const std::string& path);
void WriteWholeFile(const std::string& path, std::string_view contents);

} // namespace vellumar::test
