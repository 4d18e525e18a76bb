#include "app/CloudIniCheck.h"

#include "app/CloudIni.h"
#include "app/DataFolderChecks.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"
#include "config/CodePage.h"
#include "config/IniValue.h"
#include "config/ProfileText.h"
#include "textures/SetCatalogue.h"

#include <algorithm>
#include <map>
#include <set>

namespace vellumar {

namespace {

namespace keys = CloudIniKeys;
using ProfileText::ProfileLine;

std::string Quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

// Letters compared without regard to case.
std::size_t Distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            const bool same = ToLowerAscii(a.substr(i - 1, 1)) == ToLowerAscii(b.substr(j - 1, 1));
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (same ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

// Blanks, "_" and "-" are the usual ways of writing one name differently.
std::string Squeezed(std::string_view name)
{
    std::string squeezed;
    for (char c : ToLowerAscii(name))
        if (c != ' ' && c != '_' && c != '-')
            squeezed.push_back(c);
    return squeezed;
}

// The number a written name carries (the first run of digits), 1 when none: numbered known
// names are offered with the number the user wrote.
int NumberIn(std::string_view name)
{
    const std::size_t first = name.find_first_of("0123456789");
    if (first == std::string_view::npos)
        return 1;
    std::size_t end = name.find_first_not_of("0123456789", first);
    end = end == std::string_view::npos ? name.size() : end;
    const std::string digits(name.substr(first, std::min<std::size_t>(end - first, 4)));
    return std::max(1, std::stoi(digits));
}

// The known name a written one most likely meant, or "".
std::string LikelyMeant(std::string_view written, const std::vector<std::string>& known)
{
    std::string best;
    std::size_t bestDistance = 3;
    for (const std::string& name : known) {
        const std::size_t distance =
            Squeezed(written) == Squeezed(name) ? 0 : Distance(written, name);
        const std::size_t allowed = name.size() >= 6 ? 2 : 1;
        if (distance <= allowed && distance < bestDistance) {
            best = name;
            bestDistance = distance;
        }
    }
    return best;
}

std::string ChoiceList(std::string_view choices)
{
    std::string list(choices);
    for (std::size_t bar = list.find('|'); bar != std::string::npos; bar = list.find('|'))
        list.replace(bar, 1, " or ");
    return list;
}

// The numbers a number key takes as they are: its type's range without the bands at its ends.
std::pair<long, long> TakenRange(const IniKey& key)
{
    long low = key.type == IniType::Long ? -2147483647L - 1 : keys::kInt16Min;
    long high = key.type == IniType::Long ? 2147483647L : keys::kInt16Max;
    for (bool moved = true; moved;) {
        moved = false;
        for (const IniBand& band : key.bands) {
            if (band.read == IniBandRead::None)
                continue;
            if (band.from <= low && low <= band.to)
                low = band.to + 1, moved = true;
            if (band.from <= high && high <= band.to)
                high = band.from - 1, moved = true;
        }
    }
    return {low, high};
}

bool IsListKey(const IniKey& key)
{
    return key.last == 0 && key.key.find('#') != std::string_view::npos;
}

class Checker {
public:
    Checker(Services& services, const std::string& file)
        : services_(services)
        , ini_(services.files, services.messages, file)
    {
        // A bare file name lies in the current folder.
        const bool hasFolder =
            std::any_of(file.begin(), file.end(), [](char c) { return IsPathSeparator(c); });
        const std::string folder = hasFolder ? FolderOfPath(file) : std::string(".");
        folders_.program = folder;
        folders_.data = ResolveDataFolder(ReadIniRaw(ini_, keys::DataFolderPath), folder,
                                          services.files, services.registry);
    }

    std::vector<IniFinding> run(std::string_view contents)
    {
        for (const ProfileLine& line : ProfileText::Lines(contents)) {
            if (line.kind == ProfileLine::Kind::Section)
                enterSection(line);
            else if (line.kind == ProfileLine::Kind::Key && !line.name.starts_with(";"))
                checkKeyLine(line);
        }
        checkLists();
        checkRequired();
        checkSetFolders();
        // Missing keys (line 0) go last.
        std::stable_partition(findings_.begin(), findings_.end(),
                              [](const IniFinding& f) { return f.line != 0; });
        return std::move(findings_);
    }

private:
    struct Section {
        std::string name;
        std::size_t line = 0;
        bool known = false;
        bool read = false; // the first section of its name: the only one the program searches
        std::map<std::string, std::size_t> keyLines; // lower-cased name -> first line
    };

    void add(std::size_t line, std::string section, std::string key, std::string problem)
    {
        findings_.push_back({line, std::move(section), std::move(key), std::move(problem)});
    }

    void enterSection(const ProfileLine& line)
    {
        section_ = Section();
        section_.name = std::string(line.name);
        section_.line = line.number;
        const std::string lower = ToLowerAscii(line.name);
        const auto [first, isNew] = sectionLines_.emplace(lower, line.number);
        section_.read = isNew;
        for (const IniKey* row : keys::kAll)
            section_.known = section_.known || MatchIniName(row->section, line.name, row->last);
        if (!isNew) {
            add(line.number, section_.name, "",
                "appears again (first at line " + std::to_string(first->second) +
                    "); the program reads only the first");
        } else if (!section_.known) {
            std::vector<std::string> names;
            for (const IniKey* row : keys::kAll)
                names.push_back(IniName(row->section, NumberIn(line.name)));
            const std::string meant = LikelyMeant(line.name, names);
            add(line.number, section_.name, "",
                "unknown section" + (meant.empty() ? "" : "; did you mean [" + meant + "]?"));
        }
    }

    void checkKeyLine(const ProfileLine& line)
    {
        const std::string key(line.name);
        if (section_.line == 0) {
            add(line.number, "", key, "stands before any section; the program never reads it");
            return;
        }
        if (!section_.read || !section_.known)
            return;
        int number = 0;
        const IniKey* row = FindIniKey(section_.name, key, &number);
        if (!row) {
            unknownKey(line);
            return;
        }
        const auto [first, isNew] = section_.keyLines.emplace(ToLowerAscii(key), line.number);
        if (!isNew) {
            add(line.number, section_.name, key,
                "appears again (first at line " + std::to_string(first->second) +
                    "); the program reads only the first");
            return;
        }
        if (IsListKey(*row))
            listKeys_[{row, ToLowerAscii(section_.name)}][number] = line.number;
        if (row == &keys::SetDirName && line.hasValue)
            setLines_[number] = line.number;
        if (!line.hasValue) {
            add(line.number, section_.name, key, "has no \"=\"; the program reads it as missing");
            return;
        }
        checkValue(line, *row, number);
    }

    void unknownKey(const ProfileLine& line)
    {
        std::vector<std::string> names;
        std::string range;
        for (const IniKey* row : keys::kAll) {
            if (!MatchIniName(row->section, section_.name, row->last))
                continue;
            const std::string name = IniName(row->key, NumberIn(line.name));
            if (EqualsIgnoreCase(name, line.name) && row->last > 0)
                range = IniName(row->key, 1) + " to " + IniName(row->key, row->last);
            names.push_back(name);
        }
        std::string problem = "unknown key";
        if (!range.empty()) {
            problem += "; only " + range + " are read";
        } else if (const std::string meant = LikelyMeant(line.name, names); !meant.empty()) {
            problem += "; did you mean " + meant + "?";
        }
        add(line.number, section_.name, std::string(line.name), problem);
    }

    void checkValue(const ProfileLine& line, const IniKey& row, int number)
    {
        const std::string key(line.name);
        auto report = [&](const std::string& problem) {
            add(line.number, section_.name, key, problem);
        };
        const std::string raw = DecodeAnsiText(line.value);
        const std::string value = StripIniComment(raw);
        // A comment is marked by a blank before the apostrophe; one inside a word (Pilot's)
        // was most likely meant as part of the value.
        const std::size_t quote = raw.find('\'');
        if (quote != std::string::npos && (quote == 0 || !IsBlank(raw[quote - 1])))
            report("everything from the \"'\" on is a comment, so the value reads as " +
                   Quoted(value));

        switch (row.type) {
        case IniType::Boolean:
            if (!ParseBooleanText(value))
                report(Quoted(value) + " is not True or False" +
                       (row.absent == IniAbsent::KeepsValue
                            ? "; the setting keeps its value"
                            : "; it reads as " + std::string(row.defaultValue)));
            break;
        case IniType::Choice:
            if (!IsIniChoice(row, value))
                report(Quoted(value) + " is not " + ChoiceList(row.choices) + "; it reads as " +
                       std::string(row.defaultValue));
            break;
        case IniType::Integer16:
        case IniType::Long:
            checkNumber(row, value, report);
            break;
        case IniType::Path:
            checkPath(row, value, number, report);
            break;
        case IniType::Text:
            if (row.need == IniNeed::Expected && TrimBlanks(value).empty())
                report("is empty; " + std::string(row.rule));
            if (&row == &keys::LastInstalledEntry && value.find(',') == std::string::npos)
                report("has no comma between the set's name and its data type; the entry is "
                       "skipped");
            break;
        }
    }

    template <typename Report>
    void checkNumber(const IniKey& row, const std::string& value, Report& report)
    {
        const IniNumberReading reading = IniNumberOf(row, value);
        const std::string outcome =
            reading.value ? "it reads as " + std::to_string(*reading.value)
            : row.absent == IniAbsent::KeepsValue || reading.why == IniNumberCase::Band
                ? "it is ignored and the setting keeps its value"
                : "it is ignored";
        switch (reading.why) {
        case IniNumberCase::Taken:
        case IniNumberCase::Absent:
            return;
        case IniNumberCase::NotANumber:
            report(Quoted(value) + " is not a number; " + outcome);
            return;
        case IniNumberCase::Rounded:
            report(Quoted(value) + " is not a whole number; " + outcome);
            return;
        default: {
            const auto [low, high] = TakenRange(row);
            report(Quoted(value) + " is outside " + std::to_string(low) + " to " +
                   std::to_string(high) + "; " + outcome);
        }
        }
    }

    template <typename Report>
    void checkPath(const IniKey& row, const std::string& value, int number, Report& report)
    {
        if (TrimBlanks(value).empty())
            return;
        // A sound file is looked at only when its sound is switched on.
        if (&row == &keys::ButtonSoundFile && ReadIniChoice(ini_, keys::ButtonSoundBeep) == "off")
            return;
        if (&row == &keys::AutoRandomSoundFile &&
            ReadIniChoice(ini_, keys::AutoRandomSoundBeep) != "on")
            return;
        const std::string path = IniPathOf(row, value, folders_, services_.registry, number);
        if (row.pathKind == IniPathKind::Folder) {
            if (IsError(FolderExists(services_.files, path)))
                report("the folder " + ToNativeSeparators(path) + " does not exist");
        } else if (row.pathKind == IniPathKind::File) {
            if (IsError(FileExists(services_.files, path)))
                report("the file " + ToNativeSeparators(path) + " does not exist");
            else if (row.base == "<data>" && ToLowerAscii(TextAfterLast(path, '.')) != "wav")
                report("is not a .wav file; the system beep is used instead");
        }
    }

    // Numbered lists end at their first missing number; what follows is never read. One
    // finding, at the first entry left out, stands for all of them.
    void checkLists()
    {
        auto reportCut = [this](const std::map<int, std::size_t>& after, const std::string& section,
                                const std::string& key, const std::string& what,
                                const std::string& why) {
            if (after.empty())
                return;
            const std::size_t more = after.size() - 1;
            const auto& [number, line] = *after.begin();
            add(line, IniName(section, number), IniName(key, number),
                "never read" +
                    (more ? " (nor are the " + std::to_string(more) + " " + what + " after it)"
                          : std::string()) +
                    ": " + why);
        };
        for (const auto& [where, lines] : listKeys_) {
            int gap = 1;
            while (lines.count(gap))
                ++gap;
            const std::map<int, std::size_t> after(lines.upper_bound(gap), lines.end());
            reportCut(after, std::string(where.first->section), std::string(where.first->key),
                      "entries", "the list ends at the missing " + IniName(where.first->key, gap));
        }
        while (setLines_.count(setGap_))
            ++setGap_;
        std::map<int, std::size_t> setsAfter;
        for (const auto& [name, line] : sectionLines_) {
            const std::optional<int> number = MatchIniName(keys::SetDirName.section, name, 0);
            if (number && *number > setGap_)
                setsAfter[*number] = line;
        }
        reportCut(setsAfter, std::string(keys::SetDirName.section), "", "sets",
                  "the list of sets ends at [" + IniName(keys::SetDirName.section, setGap_) +
                      "], which has no DirName");
    }

    void checkRequired()
    {
        for (const IniKey* row : keys::kAll) {
            if (row->need == IniNeed::Optional ||
                (row->section.find('#') != std::string_view::npos && setGap_ > 1))
                continue;
            const std::string section = IniName(row->section, 1);
            if (ReadIniText(ini_, *row, 1))
                continue;
            const auto header = sectionLines_.find(ToLowerAscii(section));
            add(header == sectionLines_.end() ? 0 : header->second, section, std::string(row->key),
                "missing. " + std::string(row->rule));
        }
    }

    void checkSetFolders()
    {
        const std::string textureFolder = JoinPath(folders_.data, "Texture");
        for (int number = 1; number < setGap_; ++number) {
            const std::string dirName(
                TrimBlanks(ReadIniText(ini_, keys::SetDirName, number).value_or("")));
            const std::string section = IniName(keys::SetDirName.section, number);
            const std::size_t line = setLines_[number];
            auto report = [&](const std::string& problem) {
                add(line, section, "DirName", problem);
            };
            TextList found;
            const std::optional<long> from = ReadIniNumber(ini_, keys::SetFrom, number);
            if (!from) {
                const std::string folder = JoinPath(textureFolder, dirName);
                if (IsError(FolderExists(services_.files, folder)))
                    report("Data folder was not found: " + ToNativeSeparators(folder));
                else
                    found.push_back(folder);
            } else {
                const long to = ReadIniNumber(ini_, keys::SetTo, number).value_or(*from);
                for (long i = *from; i <= to; ++i) {
                    const std::string folder =
                        JoinPath(textureFolder, SeriesFolderName(dirName, static_cast<int>(i)));
                    if (IsOK(FolderExists(services_.files, folder)))
                        found.push_back(folder);
                }
                if (found.empty())
                    report("none of the folders of the series from " + std::to_string(*from) +
                           " to " + std::to_string(to) + " exists: " +
                           ToNativeSeparators(JoinPath(
                               textureFolder, SeriesFolderName(dirName, static_cast<int>(*from)))));
            }
            // Files the simulator under Wine could not open are left out of every install.
            for (const std::string& folder : found)
                for (const RefusedFile& refused :
                     ListRefusedSetFiles(services_.files, services_.events, folder))
                    report("\"" + refused.name + "\" in " + ToNativeSeparators(folder) +
                           " is not offered: " + refused.reason);
        }
        std::stable_sort(findings_.begin(), findings_.end(),
                         [](const IniFinding& a, const IniFinding& b) { return a.line < b.line; });
    }

    Services& services_;
    CloudIniFile ini_;
    IniFolders folders_;
    Section section_;
    std::map<std::string, std::size_t> sectionLines_; // lower-cased name -> first line
    std::map<std::pair<const IniKey*, std::string>, std::map<int, std::size_t>> listKeys_;
    std::map<int, std::size_t> setLines_; // sets with a DirName -> its line
    int setGap_ = 1;                      // the first set without a DirName
    std::vector<IniFinding> findings_;
};

} // namespace

std::vector<IniFinding> CheckCloudIni(const std::string& file, Services& services)
{
    const std::optional<std::string> contents = services.files.readFile(file);
    if (!contents)
        return {{0, "", "", "cannot be read: " + file}};
    return Checker(services, file).run(*contents);
}

std::string FormatFinding(const std::string& file, const IniFinding& finding)
{
    std::string text = file;
    if (finding.line > 0)
        text += ":" + std::to_string(finding.line);
    text += ": ";
    if (!finding.section.empty())
        text += "[" + finding.section + "]" + (finding.key.empty() ? "" : " ");
    text += finding.key;
    if (!finding.section.empty() || !finding.key.empty())
        text += ": ";
    return text + finding.problem;
}

} // namespace vellumar
