#include "textures/SetCatalogue.h"

#include "common/EventPump.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/TextCompare.h"
#include "common/WildcardMatch.h"
#include "common/WindowsNames.h"
#include "textures/TextureSetEntry.h"

#include <algorithm>

namespace vellumar {

namespace {

struct DataTypeRow {
    std::string_view patterns[2];
    std::string_view dataType;
};

// The order is the tie-break: thunder clouds before other clouds, clouds before sky colours,
// and the runway halo before the sun.
constexpr DataTypeRow kDataTypes[] = {
    {{"cldcn*.bmp", {}}, "Thunder"},
    {{"cld*.bmp", {}}, "Cumulus"},
    {{"cumul*.bmp", {}}, "Cumulus"},
    {{"stratus*.bmp", {}}, "Stratus"},
    {{"cirrus*.bmp", {}}, "Cirrus"},
    {{"sky_*.bmp", {}}, "Sky Color"},
    {{"earth*.bmp", {}}, "Earth"},
    {{"flare*.bmp", {}}, "Sun flare"},
    {{"sun*.bmp", "corona*.bmp"}, "Sun"},
    {{"halo.bmp", {}}, "Runway"},
    {{"moon*.bmp", {}}, "Moon"},
    {{"rain*.bmp", {}}, "Rain"},
    {{"VCrain*.bmp", {}}, "VC Rain"},
    {{"snow*.bmp", {}}, "Snow"},
    {{"trees*.bmp", "BLD*.bmp"}, "Autogen"},
};

bool AnyMatches(const SetFolderFiles& set, std::string_view pattern)
{
    return std::any_of(set.names.begin(), set.names.end(),
                       [pattern](const std::string& name) { return WildcardMatch(pattern, name); });
}

} // namespace

SetFolderFiles SetFolderFilesOf(const TextList& names)
{
    SetFolderFiles set;
    set.names.reserve(names.size());
    for (const std::string& name : names) {
        // Such a file was made on Linux; the simulator under Wine could not open it.
        if (std::string reason = WhyWindowsRefusesName(name); !reason.empty())
            set.refused.push_back({name, std::move(reason)});
        else
            set.names.push_back(name);
    }
    return set;
}

SetFolderFiles ScanSetFolder(FileOperations& files, EventPump& events, const std::string& folder)
{
    TextList names;
    const std::string base = TrimTrailingBackslash(folder);
    files.search(JoinPath(base, "*.*"), [&](const DirectoryEntry& entry) {
        events.DoEvents();
        if (!entry.isDirectory)
            names.push_back(entry.name);
        return true;
    });
    return SetFolderFilesOf(names);
}

std::vector<RefusedFile> ListRefusedSetFiles(FileOperations& files, EventPump& events,
                                             const std::string& folder)
{
    return ScanSetFolder(files, events, folder).refused;
}

std::string DataTypeOf(const SetFolderFiles& set)
{
    for (const DataTypeRow& row : kDataTypes)
        for (std::string_view pattern : row.patterns)
            if (!pattern.empty() && AnyMatches(set, pattern))
                return std::string(row.dataType);
    return "Unknown";
}

std::string GetSetDataType(FileOperations& files, EventPump& events, const std::string& folder)
{
    return DataTypeOf(ScanSetFolder(files, events, folder));
}

int CompatibilityOf(const SetFolderFiles& set)
{
    if (AnyMatches(set, "cld*.bmp") || AnyMatches(set, "cloudmask*.bmp") ||
        AnyMatches(set, "cumulus0*.bmp"))
        return SetCategory::Cloud;
    if (AnyMatches(set, "cirrus*.bmp"))
        return SetCategory::Cirrus;
    if (AnyMatches(set, "sky_*.bmp"))
        return SetCategory::SkyColor;
    return SetCategory::Misc;
}

int CheckSetCompatibility(FileOperations& files, EventPump& events, const std::string& folder)
{
    return CompatibilityOf(ScanSetFolder(files, events, folder));
}

bool IsInstallableFile(std::string_view name)
{
    if (EqualsIgnoreCase(name, "suneffect.cfg"))
        return true;
    return EndsWithIgnoreCase(name, "cld") || EndsWithIgnoreCase(name, "bmp") ||
           EndsWithIgnoreCase(name, "xml") || EndsWithIgnoreCase(name, ".fx");
}

bool IsPreviewPicture(std::string_view name)
{
    return EndsWithIgnoreCase(name, ".jpg") || EndsWithIgnoreCase(name, ".jpeg") ||
           EndsWithIgnoreCase(name, ".gif");
}

bool IsSetFile(std::string_view name)
{
    return IsInstallableFile(name) || IsPreviewPicture(name);
}

TextList ListSetFiles(const SetFolderFiles& set)
{
    TextList offered;
    for (const std::string& name : set.names)
        if (IsInstallableFile(name))
            offered.push_back(name);
    return offered;
}

TextList ListOptionFiles(const SetFolderFiles& set)
{
    TextList offered;
    for (const std::string& name : set.names)
        if (EndsWithIgnoreCase(name, ".bmp"))
            offered.push_back(name);
    return offered;
}

std::string PreviewPictureOf(const SetFolderFiles& set)
{
    for (const std::string& name : set.names)
        if (IsPreviewPicture(name))
            return name;
    return {};
}

std::string CheckDataFolder(FileOperations& files, EventPump& events, std::string& folder,
                            const std::string& programFolder)
{
    const std::string_view trimmed = TrimSpaces(folder);
    if (trimmed.empty())
        return "Can't find the path.";
    const std::string name = LastPathComponent(trimmed);
    if (IsError(FolderExists(files, trimmed))) {
        folder = programFolder;
        return "Can't find the " + name + " path.";
    }
    TextList subfolders;
    ListSubfolders(files, events, std::string(trimmed), subfolders);
    if (subfolders.empty())
        return "No folder(s) under the " + name + " path.";
    return {};
}

const TextureSetEntry* FindSetNamed(const std::vector<TextureSetEntry>& sets, std::string_view name)
{
    for (const TextureSetEntry& set : sets)
        if (set.name == name)
            return &set;
    for (const TextureSetEntry& set : sets)
        if (EqualsIgnoreCase(set.name, name))
            return &set;
    return nullptr;
}

} // namespace vellumar
