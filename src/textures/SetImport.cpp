#include "textures/SetImport.h"

#include "common/ArchiveReader.h"
#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/ProcessIdentity.h"
#include "common/ReplaceFile.h"
#include "common/TextCompare.h"
#include "common/WindowsNames.h"
#include "textures/SetCatalogue.h"

#include <cctype>
#include <map>
#include <optional>

namespace vellumar {

namespace {

// The temporary folder of an import in progress: ".vellumar-import-<process id>-<number>",
// so that one left by a killed run is known by its name and its ended process.
constexpr std::string_view kStagingPrefix = ".vellumar-import-";

// Archives made on a Mac carry a folder of resource data beside the files.
constexpr std::string_view kMacMetadata = "__MACOSX";

struct SourceEntry {
    std::vector<std::string> parts; // the path's components, "." left out
    ArchiveEntry::Kind kind = ArchiveEntry::Kind::File;
    std::optional<std::uint64_t> size;
    std::string path;      // as the archive or the folder has it, for messages
    std::string source;    // the archive's path of it, or the file's full path
    std::size_t index = 0; // its place among the archive's entries
};

std::string Quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

std::string Megabytes(std::uint64_t bytes)
{
    return std::to_string((bytes + (1 << 20) - 1) >> 20) + " MB";
}

// "" when the path stays inside the folder it is unpacked into; otherwise why it does not.
std::string SplitEntryPath(std::string_view path, std::vector<std::string>& parts)
{
    if (!path.empty() && (path.front() == '/' || path.front() == '\\'))
        return "has an absolute path";
    if (path.size() >= 2 && std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':')
        return "has an absolute path";
    std::size_t begin = 0;
    while (begin <= path.size()) {
        std::size_t end = path.find_first_of("/\\", begin);
        if (end == std::string_view::npos)
            end = path.size();
        const std::string_view part = path.substr(begin, end - begin);
        if (part == "..")
            return "leads out of its folder (\"..\")";
        if (!part.empty() && part != ".")
            parts.emplace_back(part);
        begin = end + 1;
    }
    return {};
}

std::string WhyRefused(ArchiveEntry::Kind kind)
{
    switch (kind) {
    case ArchiveEntry::Kind::Link:
        return "is a link";
    case ArchiveEntry::Kind::Device:
        return "is a device file";
    case ArchiveEntry::Kind::Other:
        return "is a special file (a pipe or a socket)";
    default:
        return {};
    }
}

// Why an entry keeps the whole import from happening; "" when it does not.
std::string CheckEntry(SourceEntry& entry)
{
    std::string why = SplitEntryPath(entry.path, entry.parts);
    if (why.empty())
        why = WhyRefused(entry.kind);
    if (why.empty() && entry.size && *entry.size > kLargestSetBytes)
        why = "declares " + Megabytes(*entry.size) + ", more than the " +
              Megabytes(kLargestSetBytes) + " a set may hold";
    return why.empty() ? why : Quoted(entry.path) + " " + why;
}

std::string ListArchive(const std::string& source, std::vector<SourceEntry>& entries)
{
    std::string problem;
    const std::unique_ptr<ArchiveReader> reader = OpenArchive(source, problem);
    if (!reader)
        return problem;
    std::size_t index = 0;
    while (const std::optional<ArchiveEntry> read = reader->next()) {
        SourceEntry entry;
        entry.kind = read->kind;
        entry.size = read->size;
        entry.path = read->path;
        entry.source = read->path;
        entry.index = index++;
        if (std::string why = CheckEntry(entry); !why.empty())
            return "the archive's entry " + why;
        entries.push_back(std::move(entry));
    }
    if (!reader->error().empty())
        return "the archive is damaged: " + reader->error();
    return {};
}

std::string ListFolder(FileOperations& files, const std::string& folder, const std::string& shown,
                       std::vector<SourceEntry>& entries)
{
    std::vector<std::string> names;
    if (!files.search(JoinPath(folder, "*.*"), [&names](const DirectoryEntry& entry) {
            if (entry.name != "." && entry.name != "..")
                names.push_back(entry.name);
            return true;
        }))
        return "the folder " + folder + " cannot be read";
    for (const std::string& name : names) {
        SourceEntry entry;
        entry.source = JoinPath(folder, name);
        entry.path = shown.empty() ? name : shown + "/" + name;
        const PathKind kind = files.kindOf(entry.source);
        const bool link = kind == PathKind::DanglingLink ||
                          files.finalPath(entry.source) != files.resolve(entry.source);
        entry.kind = link                       ? ArchiveEntry::Kind::Link
                     : kind == PathKind::Folder ? ArchiveEntry::Kind::Folder
                     : kind == PathKind::File   ? ArchiveEntry::Kind::File
                                                : ArchiveEntry::Kind::Other;
        if (entry.kind == ArchiveEntry::Kind::File)
            entry.size = files.fileSize(entry.source);
        if (std::string why = CheckEntry(entry); !why.empty())
            return "the folder's " + why;
        const bool descend = entry.kind == ArchiveEntry::Kind::Folder;
        entries.push_back(entry);
        if (descend)
            if (std::string problem = ListFolder(files, entry.source, entry.path, entries);
                !problem.empty())
                return problem;
    }
    return {};
}

bool IsMacMetadata(const SourceEntry& entry)
{
    return !entry.parts.empty() && entry.parts.front() == kMacMetadata;
}

// Everything in one folder at the top: that folder stands for the set folder.
void UnwrapSingleTopFolder(std::vector<SourceEntry>& entries)
{
    std::optional<std::string> top;
    for (const SourceEntry& entry : entries) {
        if (entry.parts.empty() || IsMacMetadata(entry))
            continue;
        if (entry.kind != ArchiveEntry::Kind::Folder && entry.parts.size() == 1)
            return;
        if (!top)
            top = entry.parts.front();
        else if (*top != entry.parts.front())
            return;
    }
    if (!top)
        return;
    for (SourceEntry& entry : entries)
        if (!entry.parts.empty() && !IsMacMetadata(entry))
            entry.parts.erase(entry.parts.begin());
}

std::string WhyNotASetName(const std::string& name)
{
    if (name.empty())
        return "the set needs a name (--name)";
    if (name.find('/') != std::string::npos)
        return "the name " + Quoted(name) + " holds \"/\", which Windows does not allow";
    if (std::string why = WhyWindowsRefusesName(name); !why.empty())
        return "the name " + Quoted(name) + " cannot be a folder's: " + why;
    if (name.find('\'') != std::string::npos)
        return "the name " + Quoted(name) +
               " holds an apostrophe, and cloud.ini reads everything from it on as a comment";
    if (name.rfind(".vellumar-", 0) == 0)
        return "the name " + Quoted(name) + " is kept for the program's temporary folders";
    return {};
}

// Owns the temporary folder of an import: removes it, with everything in it, unless it was
// renamed into place.
class StagingFolder {
public:
    StagingFolder(FileOperations& files, std::string path)
        : files_(files)
        , path_(std::move(path))
    {}
    ~StagingFolder()
    {
        if (!released_)
            files_.deleteTree(path_);
    }
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    const std::string& path() const { return path_; }
    void release() { released_ = true; }

private:
    FileOperations& files_;
    std::string path_;
    bool released_ = false;
};

std::string ExtractArchive(const SetImportPlan& plan, const std::string& staging)
{
    std::string problem;
    const std::unique_ptr<ArchiveReader> reader = OpenArchive(plan.source, problem);
    if (!reader)
        return problem;
    auto wanted = plan.files.begin();
    std::uint64_t budget = kLargestSetBytes;
    std::size_t index = 0;
    for (; wanted != plan.files.end(); ++index) {
        const std::optional<ArchiveEntry> entry = reader->next();
        if (!entry)
            break;
        if (wanted->entry != index)
            continue;
        if (entry->path != wanted->source)
            return "the archive changed while it was read";
        const std::uint64_t limit = entry->size ? *entry->size : budget;
        if (!reader->extractTo(JoinPath(staging, wanted->name), limit))
            return Quoted(entry->path) + ": " + reader->error();
        budget -= std::min(budget, limit);
        ++wanted;
    }
    if (!reader->error().empty())
        return "the archive is damaged: " + reader->error();
    if (wanted != plan.files.end())
        return "the archive changed while it was read";
    return {};
}

} // namespace

std::string SetNameOfSource(const std::string& source)
{
    std::string name = LastPathComponent(source);
    static constexpr std::string_view kExtensions[] = {
        ".gz",  ".bz2", ".xz",  ".zst", ".lz",   ".lzma", ".z",   ".zip", ".7z",
        ".rar", ".tar", ".tgz", ".tbz", ".tbz2", ".txz",  ".cab", ".lha", ".lzh"};
    for (bool stripped = true; stripped;) {
        stripped = false;
        for (std::string_view extension : kExtensions)
            if (name.size() > extension.size() && EndsWithIgnoreCase(name, extension)) {
                name.resize(name.size() - extension.size());
                stripped = true;
            }
    }
    return std::string(TrimBlanks(name));
}

SetImportCheck PlanSetImport(FileOperations& files, const std::string& source,
                             const std::string& name, const std::string& textureFolder)
{
    SetImportCheck check;
    SetImportPlan& plan = check.plan;
    plan.source = source;
    plan.name = std::string(TrimBlanks(name.empty() ? SetNameOfSource(source) : name));
    if (std::string why = WhyNotASetName(plan.name); !why.empty()) {
        check.problem = why;
        return check;
    }
    plan.folder = JoinPath(textureFolder, plan.name);

    std::vector<SourceEntry> entries;
    const PathKind kind = files.kindOf(source);
    if (kind == PathKind::Folder) {
        check.problem = ListFolder(files, files.resolve(source), "", entries);
    } else if (kind == PathKind::File) {
        plan.fromArchive = true;
        check.problem = ListArchive(source, entries);
    } else {
        check.problem = "there is no archive or folder " + source;
    }
    if (!check.problem.empty())
        return check;

    UnwrapSingleTopFolder(entries);
    std::map<std::string, std::string> taken; // lower-case name -> the entry that has it
    TextList names;
    for (const SourceEntry& entry : entries) {
        if (entry.kind == ArchiveEntry::Kind::Folder || entry.parts.empty())
            continue;
        const std::string& bare = entry.parts.back();
        std::string why;
        if (IsMacMetadata(entry))
            why = "resource data of a Mac";
        else if (entry.parts.size() > 1)
            why = "in a sub-folder; a set folder holds files only";
        else if (std::string refused = WhyWindowsRefusesName(bare); !refused.empty())
            why = refused;
        else if (!IsSetFile(bare))
            why = "not a kind of file a texture set holds";
        if (!why.empty()) {
            plan.skipped.push_back({entry.path, why});
            continue;
        }
        const auto [at, added] = taken.emplace(ToLowerAscii(bare), entry.path);
        if (!added) {
            check.problem = Quoted(at->second) + " and " + Quoted(entry.path) +
                            " have the same name for Windows, which ignores letter case";
            return check;
        }
        plan.files.push_back({entry.source, bare, entry.size.value_or(0), entry.index});
        plan.bytes += entry.size.value_or(0);
        names.push_back(bare);
    }
    if (plan.files.empty()) {
        check.problem = source +
                        " holds no texture set files (bitmaps, .cld, .xml, .fx, suneffect.cfg, "
                        ".jpg or .gif pictures)";
        return check;
    }
    if (plan.bytes > kLargestSetBytes) {
        check.problem = source + " declares " + Megabytes(plan.bytes) +
                        " of set files, more than the " + Megabytes(kLargestSetBytes) +
                        " a set may hold";
        return check;
    }
    plan.dataType = DataTypeOf(SetFolderFilesOf(names));
    if (files.kindOf(plan.folder) != PathKind::Missing)
        check.problem = "the texture library already has a folder " + Quoted(plan.name) + " (" +
                        files.resolve(plan.folder) + ")";
    return check;
}

std::string UnpackSet(FileOperations& files, const SetImportPlan& plan,
                      const std::string& textureFolder)
{
    const std::string stem =
        JoinPath(textureFolder, std::string(kStagingPrefix) + std::to_string(CurrentProcessId()));
    std::string path;
    for (int number = 1; path.empty() || files.kindOf(path) != PathKind::Missing; ++number)
        path = stem + "-" + std::to_string(number);
    if (!files.createFolders(path))
        return "no folder can be made in the texture library (" + textureFolder + ")";
    StagingFolder staging(files, path);

    if (plan.fromArchive) {
        if (std::string problem = ExtractArchive(plan, staging.path()); !problem.empty())
            return problem;
    } else {
        for (const ImportedFile& file : plan.files)
            if (!files.copyFile(file.source, JoinPath(staging.path(), file.name)))
                return file.source + " could not be copied";
    }
    if (!files.moveFile(staging.path(), plan.folder))
        return "the set folder could not be put in place as " + plan.folder;
    staging.release();
    return {};
}

TextList RemoveImportLeftovers(FileOperations& files, const std::string& textureFolder)
{
    TextList names;
    files.search(JoinPath(textureFolder, std::string(kStagingPrefix) + "*"),
                 [&names](const DirectoryEntry& entry) {
                     if (entry.isDirectory)
                         names.push_back(entry.name);
                     return true;
                 });
    TextList removed;
    for (const std::string& name : names) {
        const std::optional<std::uint32_t> process = ProcessNameOwner(name, kStagingPrefix);
        if (!process || IsProcessRunning(*process))
            continue;
        const std::string path = JoinPath(textureFolder, name);
        if (files.deleteTree(path))
            removed.push_back(path);
    }
    return removed;
}

} // namespace vellumar
