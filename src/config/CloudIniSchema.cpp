#include "config/CloudIniSchema.h"

#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/ConfiguredPath.h"
#include "config/IniValue.h"

#include <cmath>

namespace vellumar {

namespace {

constexpr std::string_view kProgramFolder = "<program>";
constexpr std::string_view kDataFolder = "<data>";

std::string SectionOf(const IniKey& key, int number)
{
    return IniName(key.section, number);
}

std::string KeyOf(const IniKey& key, int number)
{
    return IniName(key.key, number);
}

bool IsNumbered(std::string_view pattern)
{
    return pattern.find('#') != std::string_view::npos;
}

} // namespace

std::string IniName(std::string_view pattern, int number)
{
    const std::size_t hash = pattern.find('#');
    if (hash == std::string_view::npos)
        return std::string(pattern);
    return std::string(pattern.substr(0, hash)) + std::to_string(number) +
           std::string(pattern.substr(hash + 1));
}

std::optional<int> MatchIniName(std::string_view pattern, std::string_view name, int last)
{
    const std::size_t hash = pattern.find('#');
    if (hash == std::string_view::npos)
        return EqualsIgnoreCase(pattern, name) ? std::optional<int>(0) : std::nullopt;
    const std::string_view head = pattern.substr(0, hash);
    const std::string_view tail = pattern.substr(hash + 1);
    if (name.size() <= head.size() + tail.size() ||
        !EqualsIgnoreCase(name.substr(0, head.size()), head) ||
        !EqualsIgnoreCase(name.substr(name.size() - tail.size()), tail))
        return std::nullopt;
    const std::string_view digits =
        name.substr(head.size(), name.size() - head.size() - tail.size());
    if (digits.size() > 5 || digits.front() == '0' ||
        digits.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    const int number = std::stoi(std::string(digits));
    if (last > 0 && number > last)
        return std::nullopt;
    return number;
}

const IniKey* FindIniKey(std::string_view section, std::string_view key, int* number)
{
    for (const IniKey* row : CloudIniKeys::kAll) {
        const std::optional<int> inSection = MatchIniName(row->section, section, row->last);
        if (!inSection)
            continue;
        const std::optional<int> inKey = MatchIniName(row->key, key, row->last);
        if (!inKey)
            continue;
        if (number)
            *number = IsNumbered(row->section) ? *inSection : *inKey;
        return row;
    }
    return nullptr;
}

std::string ReadIniRaw(const CloudIniFile& ini, const IniKey& key, int number)
{
    return ini.ReadIniValue(SectionOf(key, number), KeyOf(key, number));
}

std::optional<std::string> ReadIniText(const CloudIniFile& ini, const IniKey& key, int number)
{
    std::string value = ReadIniRaw(ini, key, number);
    if (IsError(value))
        return std::nullopt;
    return value;
}

bool IsIniChoice(const IniKey& key, std::string_view value)
{
    value = TrimBlanks(value);
    std::string_view words = key.choices;
    while (!words.empty()) {
        const std::size_t bar = words.find('|');
        if (EqualsIgnoreCase(words.substr(0, bar), value))
            return true;
        words = bar == std::string_view::npos ? std::string_view() : words.substr(bar + 1);
    }
    return false;
}

std::string_view ReadIniChoice(const CloudIniFile& ini, const IniKey& key, int number)
{
    const std::string value = ReadIniRaw(ini, key, number);
    if (!IsIniChoice(key, value))
        return key.defaultValue;
    // The word as the table writes it, so callers compare with one spelling.
    std::string_view words = key.choices;
    for (;;) {
        const std::size_t bar = words.find('|');
        if (EqualsIgnoreCase(words.substr(0, bar), TrimBlanks(value)))
            return words.substr(0, bar);
        words = words.substr(bar + 1);
    }
}

bool IniBooleanOf(const IniKey& key, std::string_view value, bool current)
{
    if (const std::optional<bool> parsed = ParseBooleanText(value))
        return *parsed;
    if (key.absent == IniAbsent::KeepsValue)
        return current;
    return ParseBooleanText(key.defaultValue).value_or(false);
}

bool ReadIniBoolean(const CloudIniFile& ini, const IniKey& key, bool current, int number)
{
    return IniBooleanOf(key, ReadIniRaw(ini, key, number), current);
}

IniNumberReading IniNumberOf(const IniKey& key, std::string_view value)
{
    IniNumberReading reading;
    const std::optional<double> defaultNumber = ParseNumber(key.defaultValue);
    if (defaultNumber)
        reading.value = static_cast<long>(*defaultNumber);
    if (IsError(value)) {
        reading.why = IniNumberCase::Absent;
        return reading;
    }
    const std::optional<double> number = ParseNumber(value);
    if (!number) {
        reading.why = IniNumberCase::NotANumber;
        return reading;
    }
    const bool wide = key.type == IniType::Long;
    // Long values drop their fraction; 16-bit ones round to the nearest, halves to even.
    const double whole = wide ? std::trunc(*number) : std::nearbyint(*number);
    const double lowest = wide ? -2147483648.0 : static_cast<double>(CloudIniKeys::kInt16Min);
    const double highest = wide ? 2147483647.0 : static_cast<double>(CloudIniKeys::kInt16Max);
    // Compared as doubles before the conversion, so that no number (infinite ones included)
    // reaches a conversion it does not fit.
    if (whole < lowest) {
        reading.written = static_cast<long>(lowest);
        reading.why = IniNumberCase::TooSmall;
    } else if (whole > highest) {
        reading.written = static_cast<long>(highest);
        reading.why = IniNumberCase::TooLarge;
    } else {
        reading.written = static_cast<long>(whole);
        reading.why = whole == *number ? IniNumberCase::Taken : IniNumberCase::Rounded;
    }
    reading.value = reading.written;
    for (const IniBand& band : key.bands) {
        if (band.read == IniBandRead::None || reading.written < band.from ||
            reading.written > band.to)
            continue;
        if (band.read == IniBandRead::Fixed)
            reading.value = band.fixed;
        else if (band.read == IniBandRead::Default)
            reading.value = defaultNumber ? std::optional<long>(static_cast<long>(*defaultNumber))
                                          : std::nullopt;
        else
            reading.value = std::nullopt;
        reading.why = IniNumberCase::Band;
        break;
    }
    return reading;
}

std::optional<long> ReadIniNumber(const CloudIniFile& ini, const IniKey& key, int number)
{
    return IniNumberOf(key, ReadIniRaw(ini, key, number)).value;
}

std::string IniDefaultPath(const IniKey& key, const IniFolders& folders, int number)
{
    const std::string value = IniName(key.defaultValue, number);
    for (const auto& [name, folder] :
         {std::pair{kProgramFolder, &folders.program}, std::pair{kDataFolder, &folders.data}}) {
        if (!StartsWithIgnoreCase(value, name))
            continue;
        std::string rest = value.substr(name.size());
        while (!rest.empty() && IsPathSeparator(rest.front()))
            rest.erase(0, 1);
        return rest.empty() ? *folder : JoinPath(*folder, ToNativeSeparators(rest));
    }
    return value;
}

std::string IniPathOf(const IniKey& key, std::string_view value, const IniFolders& folders,
                      Registry& registry, int number)
{
    if (IsError(value) || TrimBlanks(value).empty())
        return IniDefaultPath(key, folders, number);
    const std::string& base = key.base == kDataFolder ? folders.data : folders.program;
    return ConfiguredPath(value, base, registry);
}

std::string ReadIniPath(const CloudIniFile& ini, const IniKey& key, const IniFolders& folders,
                        Registry& registry, int number)
{
    return IniPathOf(key, ReadIniRaw(ini, key, number), folders, registry, number);
}

} // namespace vellumar
