#pragma once

#include "common/FileOperations.h"

namespace vellumar {

// File operations that pass every call on to others underneath. A layer over the platform's
// operations (the originals guard, a test's fault seam) derives from it and overrides only the
// calls it adds something to.
class ForwardingFileOperations : public FileOperations {
public:
    explicit ForwardingFileOperations(FileOperations& inner)
        : inner_(inner)
    {}

    bool search(const std::string& pattern, const EntryVisitor& visit) override
    {
        return inner_.search(pattern, visit);
    }
    PathKind kindOf(const std::string& path) override { return inner_.kindOf(path); }
    std::string finalPath(const std::string& path) override { return inner_.finalPath(path); }
    std::optional<std::uint32_t> attributes(const std::string& path) override
    {
        return inner_.attributes(path);
    }
    bool setAttributes(const std::string& path, std::uint32_t attributes) override
    {
        return inner_.setAttributes(path, attributes);
    }
    std::optional<FileTime> modificationTime(const std::string& path) override
    {
        return inner_.modificationTime(path);
    }
    std::optional<std::uint64_t> fileSize(const std::string& path) override
    {
        return inner_.fileSize(path);
    }
    std::optional<FileStamp> fileStamp(const std::string& path) override
    {
        return inner_.fileStamp(path);
    }
    bool copyFile(const std::string& source, const std::string& target) override
    {
        return inner_.copyFile(source, target);
    }
    bool copyFileToUniqueName(const std::string& source, const std::string& target) override
    {
        return inner_.copyFileToUniqueName(source, target);
    }
    bool moveFile(const std::string& source, const std::string& target) override
    {
        return inner_.moveFile(source, target);
    }
    bool renameOver(const std::string& source, const std::string& target) override
    {
        return inner_.renameOver(source, target);
    }
    bool deleteFile(const std::string& path) override { return inner_.deleteFile(path); }
    bool deleteTree(const std::string& path) override { return inner_.deleteTree(path); }
    bool createFolders(const std::string& path) override { return inner_.createFolders(path); }
    std::optional<std::string> readFile(const std::string& path) override
    {
        return inner_.readFile(path);
    }
    std::optional<std::string> readFileAndStamp(const std::string& path, FileStamp& stamp) override
    {
        return inner_.readFileAndStamp(path, stamp);
    }
    bool replaceFile(const std::string& path, const std::string& contents) override
    {
        return inner_.replaceFile(path, contents);
    }
    std::string refusalReason() const override { return inner_.refusalReason(); }
    std::string resolve(const std::string& path) override { return inner_.resolve(path); }

protected:
    // The operations underneath.
    FileOperations& inner() { return inner_; }

private:
    FileOperations& inner_;
};

} // namespace vellumar
