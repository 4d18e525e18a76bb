#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vellumar {

class FileOperations;

// What an install is about to do, written before its first file is placed and removed when it
// ends, so that the next start can tell an install that was cut off (the power, a kill) and
// what it had got to: the set's files that hold the set's bytes are the ones it placed.
struct InstallJournal {
    std::string setName;
    std::vector<std::pair<std::string, std::string>> files; // source in the library, target

    // The targets that hold their source's bytes now.
    std::vector<std::string> placedTargets(FileOperations& files) const;
};

// <dataFolder>\Originals\install.journal
std::string InstallJournalPath(const std::string& dataFolder);

// Written through a temporary file and flushed; false when it could not be.
bool WriteInstallJournal(FileOperations& files, const std::string& path,
                         const InstallJournal& journal);
// Nothing when there is no journal (or nothing readable in it).
std::optional<InstallJournal> ReadInstallJournal(FileOperations& files, const std::string& path);

} // namespace vellumar
