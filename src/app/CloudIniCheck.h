#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vellumar {

struct Services;

// One problem of a cloud.ini file.
struct IniFinding {
    std::size_t line = 0; // 1 for the first line; 0 when the problem is something missing
    std::string section;
    std::string key; // "" when the finding is about the section
    std::string problem;
};

// Judges a cloud.ini file by the table of settings (config/CloudIniSchema.h) as the program
// would read it: unknown sections and keys (naming the known one a misspelling likely meant),
// sections and keys the program never reaches, numbers that are not numbers or lie out of
// range (and what they read as), words and yes/no values it does not know, required keys that
// are missing, apostrophes that cut a value short, and folders and files named that do not
// exist, the texture sets' folders among them (under the data folder that [DataFolder] Path
// names, relative to the file's own folder). Findings come in line order, missing keys last.
// A file that cannot be read gives one finding.
std::vector<IniFinding> CheckCloudIni(const std::string& file, Services& services);

// One line: "FILE:LINE: [Section] Key: problem" (no line number for a missing key).
std::string FormatFinding(const std::string& file, const IniFinding& finding);

} // namespace vellumar
