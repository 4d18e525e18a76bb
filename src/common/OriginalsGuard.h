#pragma once

#include "common/ForwardingFileOperations.h"
#include "common/OriginalsStore.h"
#include "common/TextList.h"

#include <memory>
#include <string>

namespace vellumar {

// The file operations every part of the program uses, with one promise added: before a file
// inside the protected folders (the simulator's) is replaced, moved away or deleted, and
// before a file is made where there was none, what was there is kept in the originals store.
// Installs, restores, the splash rotation, situations and whatever comes later all change
// simulator files through here, so none of them can lose one. A change whose original cannot
// be kept durably is refused, as a read-only file would refuse it.
//
// Until protect() names the folders every operation passes straight through.
class OriginalsGuard final : public ForwardingFileOperations {
public:
    explicit OriginalsGuard(FileOperations& files);

    // Protects everything under `folders` except the store's own data folder (which may lie
    // inside the simulator's folder); the store goes into `storeFolder`.
    void protect(const TextList& folders, const std::string& dataFolder,
                 const std::string& storeFolder);
    // The store of the protected folders; nothing before protect().
    OriginalsStore* store() { return store_.get(); }
    // The file operations underneath, which keep nothing.
    FileOperations& unguarded() { return inner(); }

    bool copyFile(const std::string& source, const std::string& target) override;
    bool copyFileToUniqueName(const std::string& source, const std::string& target) override;
    bool moveFile(const std::string& source, const std::string& target) override;
    bool renameOver(const std::string& source, const std::string& target) override;
    bool deleteFile(const std::string& path) override;
    bool deleteTree(const std::string& path) override;
    bool replaceFile(const std::string& path, const std::string& contents) override;
    std::string refusalReason() const override { return refusal_; }

private:
    bool isProtected(const std::string& path);
    // Keeps the original of `path` when it is protected; false when that failed.
    bool keep(const std::string& path);
    bool keepTree(const std::string& folder);

    TextList folders_;
    std::string dataFolder_;
    std::unique_ptr<OriginalsStore> store_;
    std::string refusal_;
};

} // namespace vellumar
