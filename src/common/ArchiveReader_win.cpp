#include "common/ArchiveReader.h"

namespace vellumar {

// The Windows build has no archive library: sets come from folders there.
std::unique_ptr<ArchiveReader> OpenArchive(const std::string& path, std::string& problem)
{
    problem = path + ": archives are not supported in this build; unpack it and add the folder";
    return nullptr;
}

bool ArchivesSupported()
{
    return false;
}

} // namespace vellumar
