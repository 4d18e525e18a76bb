#pragma once

#include "common/ForwardingFileOperations.h"

#include <functional>
#include <memory>
#include <string>

namespace vellumar::test {

// Owns the platform's operations, made before the forwarding base that passes calls to them.
struct PlatformFileOperationsHolder {
    std::unique_ptr<FileOperations> real = CreatePlatformFileOperations();
};

// The platform's real file operations on real temporary folders, with a seam where a test
// makes chosen operations fail.
class FaultyFileOperations final : private PlatformFileOperationsHolder,
                                   public ForwardingFileOperations {
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

    // Called before every file is read whole, with its path: a test counts what was read. A
    // path with no file behind it is not counted: there is nothing to read.
    std::function<void(const std::string& path)> beforeRead;

    int copies = 0;
    int deletes = 0;

    bool copyFile(const std::string& source, const std::string& target) override;
    bool copyFileToUniqueName(const std::string& source, const std::string& target) override;
    bool moveFile(const std::string& source, const std::string& target) override;
    bool renameOver(const std::string& source, const std::string& target) override;
    bool deleteFile(const std::string& path) override;
    bool deleteTree(const std::string& path) override;
    std::optional<std::string> readFile(const std::string& path) override;
    std::optional<std::string> readFileAndStamp(const std::string& path, FileStamp& stamp) override;
    bool replaceFile(const std::string& path, const std::string& contents) override;

private:
    void noteRead(const std::string& path)
    {
        if (beforeRead && real->kindOf(path) == PathKind::File)
            beforeRead(path);
    }
    void changing(const std::string& path)
    {
        if (beforeChange)
            beforeChange(path);
    }
    bool copyWithFaults(const std::string& source, const std::string& target,
                        const std::function<bool()>& copy);
};

} // namespace vellumar::test
