#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vellumar {

class FileOperations;

// Writes a tree of generated files below one root folder through the file operations, and
// keeps count. Relative paths use "/" between their parts. After the first failure every
// further call does nothing and returns false, so a builder can write on and check once.
class DemoFolderWriter {
public:
    DemoFolderWriter(FileOperations& files, std::string root);

    const std::string& root() const { return root_; }
    // root + native separator + relative, with native separators.
    std::string path(std::string_view relative) const;

    bool folder(std::string_view relative);
    // Creates the file's folder as needed; text files get Windows line endings (CRLF), as
    // the simulator's own files and every Windows editor expect.
    bool file(std::string_view relative, const std::string& bytes);
    bool textFile(std::string_view relative, std::string_view text);

    bool failed() const { return !failure_.empty(); }
    // The path that could not be written, or "".
    const std::string& failure() const { return failure_; }
    int filesWritten() const { return files_; }
    std::uint64_t bytesWritten() const { return bytes_; }

private:
    FileOperations& fileOperations_;
    std::string root_;
    std::string failure_;
    int files_ = 0;
    std::uint64_t bytes_ = 0;
};

// The text with every line break as CR LF.
std::string WithCrLf(std::string_view text);

} // namespace vellumar
