#pragma once

#include "common/TextList.h"
#include "textures/SetImport.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

class CloudIniFile;
class FileOperations;
class MessageService;
struct ProgramPaths;
struct TextureSetEntry;

// The titles of the questions and reports of adding and removing sets.
inline constexpr std::string_view kAddSetTitle = "Add Texture Set";
inline constexpr std::string_view kRemoveSetTitle = "Remove Texture Set";

// How many set sections the program reads: [Set1], [Set2], ... up to the first without DirName.
int CountSetSections(const CloudIniFile& ini);

// What adding or removing a set came to.
struct LibraryChange {
    bool done = false;    // the library and cloud.ini changed
    bool refused = false; // the user answered No: nothing changed
    std::string problem;  // why nothing changed; "" when done or refused
    int section = 0;      // the [SetN] added or removed
    SetImportPlan plan;   // an import's name, data type, files and what was left out
};

// The question that confirms an import: the name, the data type and the number of files.
std::string ImportQuestion(const SetImportPlan& plan);

// Adds the archive or folder `source` to the library as a new set called `name` ("" for the
// source's own name): checks it (see PlanSetImport; a set of that name must not exist either),
// asks the user, unpacks it into a new folder of the library and appends its [SetN] to
// cloud.ini, keeping every other byte. On any problem the library and cloud.ini stay as they
// were. Left-overs of a killed import go first.
LibraryChange AddTextureSet(FileOperations& files, MessageService& messages, CloudIniFile& ini,
                            const ProgramPaths& paths, const std::vector<TextureSetEntry>& sets,
                            const std::string& source, const std::string& name);

// cloud.ini without [Set`section`]: the sections after it, up to [Set`count`], move down by one
// so that the list has no gap, and `folders` (the removed set's) leave the AutoRandom order and
// left-out lists, which close up as well. Every other byte stays. Nothing when there is no such
// section.
std::optional<std::string> RemoveSetSection(std::string_view contents, int section, int count,
                                            const TextList& folders);

// Removes `set` from the library after asking: its section leaves cloud.ini (RemoveSetSection)
// and its folder goes to the desktop's trash, unless it lies outside the library or another
// set uses it too. Refused for the last set (the program needs one) and for a member of a
// numbered series. When the folder cannot go to the trash, cloud.ini is put back as it was.
LibraryChange RemoveTextureSet(FileOperations& files, MessageService& messages, CloudIniFile& ini,
                               const ProgramPaths& paths, const std::vector<TextureSetEntry>& sets,
                               const TextureSetEntry& set);

} // namespace vellumar
