#include "app/TextureSetLibrary.h"

#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/TextCompare.h"
#include "common/Trash.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"
#include "config/CodePage.h"
#include "config/IniValue.h"
#include "config/ProfileText.h"
#include "config/ProgramPaths.h"
#include "textures/SetCatalogue.h"
#include "textures/TextureSetEntry.h"

#include <algorithm>

namespace vellumar {

namespace keys = CloudIniKeys;

namespace {

std::string SetSection(int number)
{
    return IniName(keys::SetDirName.section, number);
}

std::string TextureFolderOf(const ProgramPaths& paths)
{
    return JoinPath(paths.DataFolder, "Texture");
}

bool HasSection(std::string_view contents, std::string_view section)
{
    for (const ProfileText::ProfileLine& line : ProfileText::Lines(contents))
        if (line.kind == ProfileText::ProfileLine::Kind::Section &&
            EqualsIgnoreCase(line.name, section))
            return true;
    return false;
}

// Takes `folders` out of one numbered list of [AutoRandom]; the entries after them move up.
std::string WithoutListed(std::string text, const IniKey& key, const TextList& folders)
{
    const std::string section(key.section);
    TextList values, kept;
    for (int number = 1;; ++number) {
        constexpr std::string_view kMissing = "\x01";
        const std::string value =
            ProfileText::Read(text, section, IniName(key.key, number), kMissing, 2048);
        if (value == kMissing)
            break;
        values.push_back(value);
        const std::string folder(TrimBlanks(StripIniComment(value)));
        if (std::none_of(folders.begin(), folders.end(),
                         [&](const std::string& gone) { return EqualsIgnoreCase(gone, folder); }))
            kept.push_back(value);
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::string name = IniName(key.key, static_cast<int>(i) + 1);
        std::optional<std::string_view> value;
        if (i < kept.size())
            value = kept[i];
        if (i < kept.size() && kept[i] == values[i])
            continue;
        if (std::optional<std::string> edited = ProfileText::Edit(text, section, name, value))
            text = std::move(*edited);
    }
    return text;
}

// Whether `folder` lies inside `library` (both as the system finds them).
bool IsInside(const std::string& folder, const std::string& library)
{
    return folder.size() > library.size() + 1 && folder.compare(0, library.size(), library) == 0 &&
           IsPathSeparator(folder[library.size()]);
}

std::string Size(std::uint64_t bytes)
{
    const std::uint64_t tenths = (bytes * 10 + (1 << 20) / 2) >> 20;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

} // namespace

int CountSetSections(const CloudIniFile& ini)
{
    int count = 0;
    while (ReadIniText(ini, keys::SetDirName, count + 1))
        ++count;
    return count;
}

std::string ImportQuestion(const SetImportPlan& plan)
{
    std::string text = "Add the texture set \"" + plan.name +
                       "\" to the library?\n\nData type: " + plan.dataType +
                       "\nFiles: " + std::to_string(plan.files.size()) + " (" + Size(plan.bytes) +
                       ")\nFrom: " + plan.source;
    if (!plan.skipped.empty())
        text += "\n\n" + std::to_string(plan.skipped.size()) +
                (plan.skipped.size() == 1 ? " file is" : " files are") +
                " left out: sets do not use them.";
    return text;
}

LibraryChange AddTextureSet(FileOperations& files, MessageService& messages, CloudIniFile& ini,
                            const ProgramPaths& paths, const std::vector<TextureSetEntry>& sets,
                            const std::string& source, const std::string& name)
{
    LibraryChange change;
    const std::string library = TextureFolderOf(paths);
    RemoveImportLeftovers(files, library);
    SetImportCheck check = PlanSetImport(files, source, name, library);
    change.plan = std::move(check.plan);
    const SetImportPlan& plan = change.plan;
    change.problem = std::move(check.problem);
    if (!change.problem.empty())
        return change;

    const std::optional<std::string> contents = ini.Contents();
    if (!contents) {
        change.problem = ini.path() + " cannot be read";
        return change;
    }
    const int count = CountSetSections(ini);
    for (int number = 1; number <= count; ++number)
        if (EqualsIgnoreCase(TrimBlanks(ReadIniText(ini, keys::SetDirName, number).value_or("")),
                             plan.name) ||
            EqualsIgnoreCase(ReadIniText(ini, keys::SetAlias, number).value_or(""), plan.name)) {
            change.problem =
                "[" + SetSection(number) + "] already holds a set called \"" + plan.name + "\"";
            return change;
        }
    if (FindSetNamed(sets, plan.name)) {
        change.problem = "there is already a texture set called \"" + plan.name + "\"";
        return change;
    }
    change.section = count + 1;
    const std::string section = SetSection(change.section);
    // A section of that number without DirName would lend the new set its other keys.
    if (HasSection(*contents, section)) {
        change.problem = ini.path() + " already has a [" + section +
                         "] without DirName; remove or complete it first";
        return change;
    }
    std::string dirName = plan.name;
    if (!IsValidUtf8(*contents))
        dirName = EncodeAnsiText(dirName).value_or(dirName);
    const std::optional<std::string> edited =
        ProfileText::Edit(*contents, section, keys::SetDirName.key, dirName);
    if (!edited) {
        change.problem = "the name \"" + plan.name + "\" cannot be written into cloud.ini";
        return change;
    }

    if (messages.ShowMessage(ImportQuestion(plan), MessageStyle::YesNo | MessageStyle::Question,
                             std::string(kAddSetTitle)) != MessageResult::Yes) {
        change.refused = true;
        return change;
    }
    change.problem = UnpackSet(files, plan, library);
    if (!change.problem.empty())
        return change;
    if (!ini.WriteContents(*edited)) {
        // The folder is this run's own, made a moment ago: nobody has seen it yet.
        files.deleteTree(plan.folder);
        change.problem = ini.path() + " could not be written";
        return change;
    }
    change.done = true;
    return change;
}

std::optional<std::string> RemoveSetSection(std::string_view contents, int section, int count,
                                            const TextList& folders)
{
    std::optional<std::string> text = ProfileText::RemoveSection(contents, SetSection(section));
    if (!text)
        return std::nullopt;
    for (int number = section + 1; number <= count; ++number)
        if (std::optional<std::string> renamed =
                ProfileText::RenameSection(*text, SetSection(number), SetSection(number - 1)))
            text = std::move(renamed);
    // The AutoRandom lists name sets by folder, so the renumbering leaves them right; only the
    // removed set's folders must go, or a later set of the same folder would inherit them.
    *text = WithoutListed(std::move(*text), keys::AutoRandomOrder, folders);
    *text = WithoutListed(std::move(*text), keys::AutoRandomLeftOut, folders);
    return text;
}

LibraryChange RemoveTextureSet(FileOperations& files, MessageService& messages, CloudIniFile& ini,
                               const ProgramPaths& paths, const std::vector<TextureSetEntry>& sets,
                               const TextureSetEntry& set)
{
    LibraryChange change;
    change.section = set.section;
    if (ReadIniText(ini, keys::SetFrom, set.section)) {
        change.problem = "\"" + set.name + "\" is one of the numbered series of [" +
                         SetSection(set.section) + "]; edit that section to change the series";
        return change;
    }
    const int count = CountSetSections(ini);
    if (count <= 1 || set.section > count) {
        change.problem = "\"" + set.name + "\" is the only texture set, and the program needs one";
        return change;
    }
    const std::optional<std::string> contents = ini.Contents();
    if (!contents) {
        change.problem = ini.path() + " cannot be read";
        return change;
    }
    TextList folders;
    for (const TextureSetEntry& each : sets)
        if (each.section == set.section)
            folders.push_back(each.dirName);
    const std::optional<std::string> edited =
        RemoveSetSection(*contents, set.section, count, folders);
    if (!edited) {
        change.problem = "[" + SetSection(set.section) + "] is not in " + ini.path();
        return change;
    }

    // The folder goes only when it is the library's and no other set uses it.
    const std::string folder = files.resolve(set.folder);
    const bool shared = std::any_of(sets.begin(), sets.end(), [&](const TextureSetEntry& each) {
        return each.section != set.section && files.resolve(each.folder) == folder;
    });
    const bool toTrash = files.kindOf(set.folder) != PathKind::Missing && !shared &&
                         IsInside(folder, files.resolve(TextureFolderOf(paths)));
    std::string question = "Remove the texture set \"" + set.name + "\" from the library?";
    question += toTrash ? "\n\nIts folder goes to the trash:\n" + folder
                        : "\n\nIts folder stays where it is.";
    if (messages.ShowMessage(question, MessageStyle::YesNo | MessageStyle::Question,
                             std::string(kRemoveSetTitle)) != MessageResult::Yes) {
        change.refused = true;
        return change;
    }
    if (!ini.WriteContents(*edited)) {
        change.problem = ini.path() + " could not be written";
        return change;
    }
    if (toTrash) {
        if (std::string why = MoveToTrash(folder); !why.empty()) {
            ini.WriteContents(*contents);
            change.problem = why;
            return change;
        }
    }
    change.done = true;
    return change;
}

} // namespace vellumar
