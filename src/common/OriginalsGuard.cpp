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
    : files_(files)
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
            folders_.push_back(files_.resolve(folder));
    dataFolder_ = dataFolder.empty() ? std::string() : files_.resolve(dataFolder);
    store_ = std::make_unique<OriginalsStore>(files_, storeFolder);
}

bool OriginalsGuard::isProtected(const std::string& path)
{
    if (!store_ || folders_.empty())
        return false;
    const std::string spelled = files_.resolve(path);
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
    files_.search(JoinPath(folder, "*"), [&](const DirectoryEntry& entry) {
        if (entry.name != "." && entry.name != "..")
            names.push_back(entry.name);
        return true;
    });
    for (const std::string& name : names) {
        const std::string path = JoinPath(folder, name);
        const bool ok = files_.kindOf(path) == PathKind::Folder ? keepTree(path) : keep(path);
        if (!ok)
            return false;
    }
    return true;
}

bool OriginalsGuard::search(const std::string& pattern, const EntryVisitor& visit)
{
    return files_.search(pattern, visit);
}

PathKind OriginalsGuard::kindOf(const std::string& path)
{
    return files_.kindOf(path);
}

std::string OriginalsGuard::finalPath(const std::string& path)
{
    return files_.finalPath(path);
}

std::optional<std::uint32_t> OriginalsGuard::attributes(const std::string& path)
{
    return files_.attributes(path);
}

bool OriginalsGuard::setAttributes(const std::string& path, std::uint32_t attributes)
{
    return files_.setAttributes(path, attributes);
}

std::optional<FileTime> OriginalsGuard::modificationTime(const std::string& path)
{
    return files_.modificationTime(path);
}

std::optional<std::uint64_t> OriginalsGuard::fileSize(const std::string& path)
{
    return files_.fileSize(path);
}

std::optional<FileStamp> OriginalsGuard::fileStamp(const std::string& path)
{
    return files_.fileStamp(path);
}

bool OriginalsGuard::copyFile(const std::string& source, const std::string& target)
{
    return keep(target) && files_.copyFile(source, target);
}

bool OriginalsGuard::copyFileToUniqueName(const std::string& source, const std::string& target)
{
    return keep(target) && files_.copyFileToUniqueName(source, target);
}

bool OriginalsGuard::moveFile(const std::string& source, const std::string& target)
{
    return keep(source) && keep(target) && files_.moveFile(source, target);
}

bool OriginalsGuard::renameOver(const std::string& source, const std::string& target)
{
    return keep(source) && keep(target) && files_.renameOver(source, target);
}

bool OriginalsGuard::deleteFile(const std::string& path)
{
    return keep(path) && files_.deleteFile(path);
}

bool OriginalsGuard::deleteTree(const std::string& path)
{
    return keepTree(path) && files_.deleteTree(path);
}

bool OriginalsGuard::createFolders(const std::string& path)
{
    return files_.createFolders(path);
}

std::optional<std::string> OriginalsGuard::readFile(const std::string& path)
{
    return files_.readFile(path);
}

bool OriginalsGuard::replaceFile(const std::string& path, const std::string& contents)
{
    return keep(path) && files_.replaceFile(path, contents);
}

std::string OriginalsGuard::resolve(const std::string& path)
{
    return files_.resolve(path);
}

} // namespace vellumar
