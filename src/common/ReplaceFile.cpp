#include "common/ReplaceFile.h"

#include "common/FileOperations.h"
#include "common/PathText.h"

#include <atomic>
#include <random>
#include <string>

namespace vellumar {

std::string TemporarySiblingName(const std::string& target)
{
    // Unique within the process, and a random token keeps two processes apart; a stale name
    // left by a crash is simply removed and reused.
    static std::atomic<unsigned> counter{0};
    static const unsigned token = std::random_device{}();
    const std::string folder = FolderOfPath(target);
    std::string name =
        ".vellumar-" + std::to_string(token) + "-" + std::to_string(++counter) + ".tmp";
    if (folder == target) // a bare name: the temporary file goes beside it
        return name;
    return folder + target[folder.size()] + name;
}

ReplaceResult ReplaceFileWith(FileOperations& files, const std::string& source,
                              const std::string& target)
{
    if (const auto attributes = files.attributes(target);
        attributes && (*attributes & (FileAttribute::ReadOnly | FileAttribute::Directory)))
        return ReplaceResult::TargetLocked;
    const std::string temporary = TemporarySiblingName(target);
    // The copy carries the source's attributes, read-only included, so clear them first.
    auto removeTemporary = [&] {
        if (files.attributes(temporary)) {
            files.setAttributes(temporary, FileAttribute::Archive);
            files.deleteFile(temporary);
        }
    };
    // A temporary file left by a crash has the same name only by chance: clear it and retry.
    bool copied = files.copyFileToUniqueName(source, temporary);
    if (!copied && files.attributes(temporary)) {
        removeTemporary();
        copied = files.copyFileToUniqueName(source, temporary);
    }
    if (!copied) {
        removeTemporary();
        return ReplaceResult::CopyFailed;
    }
    if (!files.renameOver(temporary, target)) {
        removeTemporary();
        return ReplaceResult::TargetLocked;
    }
    return ReplaceResult::Replaced;
}

} // namespace vellumar
