#pragma once

#include "common/FileOperations.h"

#include <functional>
#include <memory>
#include <string>

namespace vellumar::test {

// The platform's real file operations on real temporary folders, with a seam where a test
// makes chosen operations fail.
class FaultyFileOperations final : public FileOperations {
public:
    FaultyFileOperations();

    // Each returns true when the operation on these paths should fail.
    std::function<bool(const std::string& source, const std::string& target)> failCopy;
    std::function<bool(const std::string& path)> failDelete;
    std::function<bool(const std::string& path)> failReplace;
    // A copy that fails after writing part of the target, like a disk that fills up.
    std::function<bool(const std::string& source, const std::string& target)> failCopyHalfway;

    // Called before every operation that changes a file (copy, move, rename, delete, replace),
    // with the path it changes: a crash test ends its child process here.
    std::function<void(const std::string& path)> beforeChange;

    // Called before every file is read whole, with its path: a test counts what was read.
    std::function<void(const std::string& path)> beforeRead;

    int copies = 0;
    int deletes = 0;

    bool search(const std::string& pattern, const EntryVisitor& visit) override;
    PathKind kindOf(const std::string& path) override;
    std::string finalPath(const std::string& path) override;
    std::optional<std::uint32_t> attributes(const std::string& path) override;
    bool setAttributes(const std::string& path, std::uint32_t attributes) override;
    std::optional<FileTime> modificationTime(const std::string& path) override;
    std::optional<std::uint64_t> fileSize(const std::string& path) override;
    bool copyFile(const std::string& source, const std::string& target) override;
    bool copyFileToUniqueName(const std::string& source, const std::string& target) override;
    bool moveFile(const std::string& source, const std::string& target) override;
    bool renameOver(const std::string& source, const std::string& target) override;
    bool deleteFile(const std::string& path) override;
    bool deleteTree(const std::string& path) override;
    bool createFolders(const std::string& path) override;
    std::optional<std::string> readFile(const std::string& path) override;
    bool replaceFile(const std::string& path, const std::string& contents) override;
    std::string resolve(const std::string& path) override;

private:
    void changing(const std::string& path)
    {
        if (beforeChange)
            beforeChange(path);
    }
    bool copyWithFaults(const std::string& source, const std::string& target,
                        const std::function<bool()>& copy);

    std::unique_ptr<FileOperations> real_;
};

} // namespace vellumar::test
