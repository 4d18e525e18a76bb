#include "common/OriginalsGuard.h"

#include "common/PathText.h"
#include "common/ReplaceFile.h"
#include "common/TextCompare.h"

namespace vellumar {

namespace {

bool IsInsideOrSame(const std::string& path, const std::string& folder)
{
    return !folder.empty() && StartsWithIgnoreCase(path, folder) &&
           (path.size() == folder.size() || IsPathSeparator(path[folder.size()]) ||
            IsPathSeparator(folder.back()));
}

} // namespace

OriginalsGuard::OriginalsGuard(FileOperations& files)
    : ForwardingFileOperations(files)
{}

void OriginalsGuard::protect(const TextList& folders, const std::string& dataFolder,
                             const std::string& storeFolder)
{
    folders_.clear();
    store_.reset();
    if (dataFolder.empty()) // no data folder, no store: nothing can be kept, so nothing is
        return;             // protected (the start-up ends the program in that case anyway)
    for (const std::string& folder : folders)
        if (!folder.empty())
            folders_.push_back(inner().resolve(folder));
    dataFolder_ = dataFolder.empty() ? std::string() : inner().resolve(dataFolder);
    store_ = std::make_unique<OriginalsStore>(inner(), storeFolder);
}

bool OriginalsGuard::isProtected(const std::string& path)
{
    if (!store_ || folders_.empty())
        return false;
    const std::string spelled = inner().resolve(path);
    // The program's own temporary files come and go; they were never the simulator's.
    if (TemporaryNameOwner(LastPathComponent(spelled)))
        return false;
    if (IsInsideOrSame(spelled, dataFolder_) || IsInsideOrSame(spelled, store_->folder()))
        return false;
    for (const std::string& folder : folders_)
        if (IsInsideOrSame(spelled, folder))
            return true;
    return false;
}

bool OriginalsGuard::keep(const std::string& path)
{
    refusal_.clear(); // every change asked for starts here
    if (!isProtected(path) || store_->keep(path))
        return true;
    refusal_ = "The simulator's original of " + path + " could not be kept first in " +
               store_->folder() + ", so it was left as it is.";
    return false;
}

bool OriginalsGuard::keepTree(const std::string& folder)
{
    if (!store_)
        return true;
    TextList names;
    inner().search(JoinPath(folder, "*"), [&](const DirectoryEntry& entry) {
        if (entry.name != "." && entry.name != "..")
            names.push_back(entry.name);
        return true;
    });
    for (const std::string& name : names) {
        const std::string path = JoinPath(folder, name);
        const bool ok = inner().kindOf(path) == PathKind::Folder ? keepTree(path) : keep(path);
        if (!ok)
            return false;
    }
    return true;
}

bool OriginalsGuard::copyFile(const std::string& source, const std::string& target)
{
    return keep(target) && inner().copyFile(source, target);
}

bool OriginalsGuard::copyFileToUniqueName(const std::string& source, const std::string& target)
{
    return keep(target) && inner().copyFileToUniqueName(source, target);
}

bool OriginalsGuard::moveFile(const std::string& source, const std::string& target)
{
    return keep(source) && keep(target) && inner().moveFile(source, target);
}

bool OriginalsGuard::renameOver(const std::string& source, const std::string& target)
{
    return keep(source) && keep(target) && inner().renameOver(source, target);
}

bool OriginalsGuard::deleteFile(const std::string& path)
{
    return keep(path) && inner().deleteFile(path);
}

bool OriginalsGuard::deleteTree(const std::string& path)
{
    return keepTree(path) && inner().deleteTree(path);
}

bool OriginalsGuard::replaceFile(const std::string& path, const std::string& contents)
{
    return keep(path) && inner().replaceFile(path, contents);
}

} // namespace vellumar
