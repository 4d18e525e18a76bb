#include "support/FaultyFileOperations.h"

namespace vellumar::test {

FaultyFileOperations::FaultyFileOperations()
    : ForwardingFileOperations(*real)
{}

bool FaultyFileOperations::copyFile(const std::string& source, const std::string& target)
{
    changing(target);
    return copyWithFaults(source, target, [&] { return real->copyFile(source, target); });
}

bool FaultyFileOperations::copyFileToUniqueName(const std::string& source,
                                                const std::string& target)
{
    changing(target);
    return copyWithFaults(source, target,
                          [&] { return real->copyFileToUniqueName(source, target); });
}

bool FaultyFileOperations::copyWithFaults(const std::string& source, const std::string& target,
                                          const std::function<bool()>& copy)
{
    ++copies;
    if (failCopy && failCopy(source, target))
        return false;
    if (failCopyHalfway && failCopyHalfway(source, target)) {
        // Leave a truncated target behind, as a full disk would, and report the failure.
        const auto contents = real->readFile(source);
        if (contents && !real->attributes(target))
            real->replaceFile(target, contents->substr(0, contents->size() / 2));
        return false;
    }
    return copy();
}

bool FaultyFileOperations::moveFile(const std::string& source, const std::string& target)
{
    changing(target);
    return real->moveFile(source, target);
}

bool FaultyFileOperations::renameOver(const std::string& source, const std::string& target)
{
    changing(target);
    return real->renameOver(source, target);
}

bool FaultyFileOperations::deleteFile(const std::string& path)
{
    changing(path);
    ++deletes;
    if (failDelete && failDelete(path))
        return false;
    return real->deleteFile(path);
}

bool FaultyFileOperations::deleteTree(const std::string& path)
{
    changing(path);
    if (failDelete && failDelete(path))
        return false;
    return real->deleteTree(path);
}

std::optional<std::string> FaultyFileOperations::readFile(const std::string& path)
{
    noteRead(path);
    return real->readFile(path);
}

std::optional<std::string> FaultyFileOperations::readFileAndStamp(const std::string& path,
                                                                  FileStamp& stamp)
{
    noteRead(path);
    return real->readFileAndStamp(path, stamp);
}

bool FaultyFileOperations::replaceFile(const std::string& path, const std::string& contents)
{
    changing(path);
    if (failReplace && failReplace(path))
        return false;
    return real->replaceFile(path, contents);
}

} // namespace vellumar::test
