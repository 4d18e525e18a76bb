#pragma once

#include "common/TextList.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vellumar {

class FileOperations;

// A file that goes into the new set folder.
struct ImportedFile {
    std::string source;      // the entry's path in the archive, or the file's full path
    std::string name;        // its bare name in the set folder
    std::uint64_t bytes = 0; // as declared; 0 when the archive does not say
    std::size_t entry = 0;   // its place among the archive's entries
};

// Something of the source that does not go into the set, and why.
struct SkippedEntry {
    std::string path;
    std::string reason;
};

// What an import of an archive or a folder will make, found out without writing anything.
struct SetImportPlan {
    std::string source;
    bool fromArchive = false;
    std::string name;   // the set's name, which is also its folder's name under Texture
    std::string folder; // the full path of the set folder to be made
    std::string dataType;
    std::vector<ImportedFile> files;
    std::vector<SkippedEntry> skipped;
    std::uint64_t bytes = 0;
};

struct SetImportCheck {
    SetImportPlan plan;
    std::string problem; // "" when the plan can be carried out
};

// The most a set may hold: sky textures run to some megabytes, and a declared size beyond this
// is a damaged or hostile archive, not a set.
inline constexpr std::uint64_t kLargestSetBytes = std::uint64_t{2} << 30;

// The set name an archive or folder suggests: its name without the archive extensions.
std::string SetNameOfSource(const std::string& source);

// Reads the archive or folder `source` and decides what goes into the new set folder
// `textureFolder`\`name` (`name` "" for SetNameOfSource): the plain files of the kinds a set
// holds, from the top or from the single folder everything sits in. Refused, with the reason:
// an entry with an absolute path or "..", a link, a device or other special file, a declared
// size beyond kLargestSetBytes, two names that differ only in letter case, a damaged archive,
// a source without set files, an unusable name, and a folder that already exists.
SetImportCheck PlanSetImport(FileOperations& files, const std::string& source,
                             const std::string& name, const std::string& textureFolder);

// Unpacks (or copies) the planned files into a temporary folder inside `textureFolder`, then
// renames it to plan.folder. "" when the folder is in place; otherwise the reason, and nothing
// is left behind.
std::string UnpackSet(FileOperations& files, const SetImportPlan& plan,
                      const std::string& textureFolder);

// Temporary folders of imports whose process has ended (killed mid-way) are removed; returns
// their paths.
TextList RemoveImportLeftovers(FileOperations& files, const std::string& textureFolder);

} // namespace vellumar
