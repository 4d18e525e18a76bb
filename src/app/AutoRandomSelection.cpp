#include "app/AutoRandomSelection.h"

#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"
#include "textures/TextureSetEntry.h"

#include <algorithm>
#include <map>
#include <string>

namespace vellumar {

namespace keys = CloudIniKeys;

namespace {

// The folders of a numbered list of the program's own, up to the first gap.
std::vector<std::string> ReadFolderList(const CloudIniFile& ini, const IniKey& key)
{
    std::vector<std::string> folders;
    for (int number = 1;; ++number) {
        const auto value = ReadIniText(ini, key, number);
        if (!value)
            break;
        folders.emplace_back(TrimBlanks(*value));
    }
    return folders;
}

int SetWithFolder(const std::vector<TextureSetEntry>& sets, const std::string& folder)
{
    for (std::size_t i = 0; i < sets.size(); ++i)
        if (EqualsIgnoreCase(sets[i].dirName, folder))
            return static_cast<int>(i);
    return -1;
}

void WriteIfChanged(CloudIniFile& ini, const std::string& section, const std::string& key,
                    const std::string& value)
{
    const std::string current = ini.ReadIniValue(section, key);
    const bool absent = current == "Error" && ini.ReadRaw(section, key) == "Error";
    if (value.empty() ? absent : (!absent && current == value))
        return;
    ini.Write(section, key, value);
}

// Writes a numbered list and deletes the numbers an earlier, longer list left behind.
void WriteFolderList(CloudIniFile& ini, const IniKey& key, const std::vector<std::string>& values)
{
    const std::string section(key.section);
    int number = 1;
    for (const std::string& value : values)
        WriteIfChanged(ini, section, IniName(key.key, number++), value);
    while (ReadIniText(ini, key, number))
        ini.Write(section, IniName(key.key, number++), "");
}

} // namespace

bool AutoRandomSelection::anySelected() const
{
    return std::find(flags.begin(), flags.end(), true) != flags.end();
}

AutoRandomSelection ReadAutoRandomSelection(const CloudIniFile& ini,
                                            const std::vector<TextureSetEntry>& sets)
{
    AutoRandomSelection selection;
    selection.OrderMode = ReadIniChoice(ini, keys::AutoRandomMode) == "order";
    selection.flags.reserve(sets.size());
    for (const TextureSetEntry& set : sets)
        selection.flags.push_back(set.random);
    for (const std::string& folder : ReadFolderList(ini, keys::AutoRandomLeftOut)) {
        const int index = SetWithFolder(sets, folder);
        if (index >= 0)
            selection.flags[static_cast<std::size_t>(index)] = false;
    }

    std::vector<bool> placed(sets.size(), false);
    auto place = [&](int index) {
        const auto at = static_cast<std::size_t>(index);
        if (index < 0 || placed[at] || !selection.flags[at])
            return;
        placed[at] = true;
        selection.order.push_back(index);
    };
    const std::vector<std::string> arranged = ReadFolderList(ini, keys::AutoRandomOrder);
    if (!arranged.empty()) {
        for (const std::string& folder : arranged)
            place(SetWithFolder(sets, folder));
    } else {
        std::vector<int> numbered;
        for (std::size_t i = 0; i < sets.size(); ++i)
            if (sets[i].order)
                numbered.push_back(static_cast<int>(i));
        std::stable_sort(numbered.begin(), numbered.end(), [&](int a, int b) {
            return *sets[static_cast<std::size_t>(a)].order <
                   *sets[static_cast<std::size_t>(b)].order;
        });
        for (int index : numbered)
            place(index);
    }
    for (std::size_t i = 0; i < sets.size(); ++i)
        place(static_cast<int>(i));
    return selection;
}

void WriteAutoRandomSelection(CloudIniFile& ini, const std::vector<TextureSetEntry>& sets,
                              const AutoRandomSelection& selection)
{
    // One Random key per section; the members of a series share it.
    std::map<int, bool> sectionOn;
    for (std::size_t i = 0; i < sets.size() && i < selection.flags.size(); ++i)
        sectionOn[sets[i].section] = sectionOn[sets[i].section] || selection.flags[i];
    for (const auto& [section, on] : sectionOn)
        if (section > 0)
            WriteIfChanged(ini, IniName(keys::SetRandom.section, section),
                           std::string(keys::SetRandom.key), on ? "on" : "off");

    std::vector<std::string> leftOut;
    for (std::size_t i = 0; i < sets.size() && i < selection.flags.size(); ++i)
        if (!selection.flags[i] && sectionOn[sets[i].section])
            leftOut.push_back(sets[i].dirName);
    WriteFolderList(ini, keys::AutoRandomLeftOut, leftOut);

    std::vector<std::string> order;
    for (int index : selection.order)
        if (index >= 0 && static_cast<std::size_t>(index) < sets.size())
            order.push_back(sets[static_cast<std::size_t>(index)].dirName);
    WriteFolderList(ini, keys::AutoRandomOrder, order);
    WriteIfChanged(ini, std::string(keys::AutoRandomMode.section),
                   std::string(keys::AutoRandomMode.key), selection.OrderMode ? "order" : "random");
}

void ReloadAutoRandomSelection(const CloudIniFile& ini, std::vector<TextureSetEntry>& sets,
                               AutoRandomSelection& selection)
{
    for (TextureSetEntry& set : sets)
        set.random = ReadIniChoice(ini, keys::SetRandom, set.section) != "off";
    selection = ReadAutoRandomSelection(ini, sets);
}

void TickAutoRandomSet(AutoRandomSelection& selection, int index, bool ticked)
{
    if (index < 0 || static_cast<std::size_t>(index) >= selection.flags.size())
        return;
    selection.flags[static_cast<std::size_t>(index)] = ticked;
    const auto found = std::find(selection.order.begin(), selection.order.end(), index);
    if (ticked && found == selection.order.end())
        selection.order.push_back(index);
    else if (!ticked && found != selection.order.end())
        selection.order.erase(found);
}

} // namespace vellumar
