#include "support/FaultyFileOperations.h"

namespace vellumar::test {

FaultyFileOperations::FaultyFileOperations()
    : real_(CreatePlatformFileOperations())
{}

bool FaultyFileOperations::search(const std::string& pattern, const EntryVisitor& visit)
{
    return real_->search(pattern, visit);
}

PathKind FaultyFileOperations::kindOf(const std::string& path)
{
    return real_->kindOf(path);
}

std::string FaultyFileOperations::finalPath(const std::string& path)
{
    return real_->finalPath(path);
}

std::optional<std::uint32_t> FaultyFileOperations::attributes(const std::string& path)
{
    return real_->attributes(path);
}

bool FaultyFileOperations::setAttributes(const std::string& path, std::uint32_t attributes)
{
    return real_->setAttributes(path, attributes);
}

std::optional<FileTime> FaultyFileOperations::modificationTime(const std::string& path)
{
    return real_->modificationTime(path);
}

std::optional<std::uint64_t> FaultyFileOperations::fileSize(const std::string& path)
{
    return real_->fileSize(path);
}

bool FaultyFileOperations::copyFile(const std::string& source, const std::string& target)
{
    changing(target);
    return copyWithFaults(source, target, [&] { return real_->copyFile(source, target); });
}

bool FaultyFileOperations::copyFileToUniqueName(const std::string& source,
                                                const std::string& target)
{
    changing(target);
    return copyWithFaults(source, target,
                          [&] { return real_->copyFileToUniqueName(source, target); });
}

bool FaultyFileOperations::copyWithFaults(const std::string& source, const std::string& target,
                                          const std::function<bool()>& copy)
{
    ++copies;
    if (failCopy && failCopy(source, target))
        return false;
    if (failCopyHalfway && failCopyHalfway(source, target)) {
        // Leave a truncated target behind, as a full disk would, and report the failure.
        const auto contents = real_->readFile(source);
        if (contents && !real_->attributes(target))
            real_->replaceFile(target, contents->substr(0, contents->size() / 2));
        return false;
    }
    return copy();
}

bool FaultyFileOperations::moveFile(const std::string& source, const std::string& target)
{
    changing(target);
    return real_->moveFile(source, target);
}

bool FaultyFileOperations::renameOver(const std::string& source, const std::string& target)
{
    changing(target);
    return real_->renameOver(source, target);
}

bool FaultyFileOperations::deleteFile(const std::string& path)
{
    changing(path);
    ++deletes;
    if (failDelete && failDelete(path))
        return false;
    return real_->deleteFile(path);
}

bool FaultyFileOperations::deleteTree(const std::string& path)
{
    changing(path);
    if (failDelete && failDelete(path))
        return false;
    return real_->deleteTree(path);
}

bool FaultyFileOperations::createFolders(const std::string& path)
{
    return real_->createFolders(path);
}

std::optional<std::string> FaultyFileOperations::readFile(const std::string& path)
{
    if (beforeRead)
        beforeRead(path);
    return real_->readFile(path);
}

bool FaultyFileOperations::replaceFile(const std::string& path, const std::string& contents)
{
    changing(path);
    if (failReplace && failReplace(path))
        return false;
    return real_->replaceFile(path, contents);
}

std::string FaultyFileOperations::resolve(const std::string& path)
{
    return real_->resolve(path);
}

} // namespace vellumar::test
