#include "textures/InstallJournal.h"

#include "common/FileOperations.h"
#include "common/OriginalsStore.h"
#include "common/PathText.h"

#include <string_view>

namespace vellumar {

namespace {

// Fields are separated by tabs, which no Windows path holds.
std::vector<std::string_view> Fields(std::string_view line)
{
    std::vector<std::string_view> fields;
    for (;;) {
        const std::size_t tab = line.find('\t');
        fields.push_back(line.substr(0, tab));
        if (tab == std::string_view::npos)
            return fields;
        line.remove_prefix(tab + 1);
    }
}

bool SameBytes(FileOperations& files, const std::string& a, const std::string& b)
{
    const auto sizeA = files.fileSize(a);
    if (!sizeA || sizeA != files.fileSize(b))
        return false;
    const auto bytesA = files.readFile(a);
    return bytesA && bytesA == files.readFile(b);
}

} // namespace

std::vector<std::string> InstallJournal::placedTargets(FileOperations& fileOperations) const
{
    std::vector<std::string> placed;
    for (const auto& [source, target] : files)
        if (SameBytes(fileOperations, source, target))
            placed.push_back(target);
    return placed;
}

std::string InstallJournalPath(const std::string& dataFolder)
{
    return JoinPath(OriginalsStore::FolderIn(dataFolder), "install.journal");
}

bool WriteInstallJournal(FileOperations& files, const std::string& path,
                         const InstallJournal& journal)
{
    std::string text = "set\t" + journal.setName + "\n";
    for (const auto& [source, target] : journal.files)
        text += "file\t" + source + "\t" + target + "\n";
    return files.createFolders(FolderOfPath(path)) && files.replaceFile(path, text);
}

std::optional<InstallJournal> ReadInstallJournal(FileOperations& files, const std::string& path)
{
    const std::optional<std::string> text = files.readFile(path);
    if (!text)
        return std::nullopt;
    InstallJournal journal;
    bool named = false;
    std::string_view rest = *text;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::vector<std::string_view> fields = Fields(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (fields.size() == 2 && fields[0] == "set") {
            journal.setName = fields[1];
            named = true;
        } else if (fields.size() == 3 && fields[0] == "file") {
            journal.files.emplace_back(fields[1], fields[2]);
        }
    }
    if (!named)
        return std::nullopt;
    return journal;
}

} // namespace vellumar
