#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

// Finds string values in the text files in which Wine keeps a registry hive (system.reg,
// user.reg, userdef.reg):
//
//   WINE REGISTRY Version 2
//   [Software\\Microsoft\\Windows NT\\CurrentVersion] 1600000000
//   "SystemRoot"="C:\\windows"
//   "Path"=str(2):"%SystemRoot%\\system32"
//   @="the default value"
//
// Key and value names match without regard to case. Values are returned in UTF-8, cut at
// their first NUL. Only string values count: plain and str(N) strings, and hex(1), hex(2) and
// hex(7) data (UTF-16 text); numbers and binary data do not. Files run to megabytes, so the
// scanner takes the file in chunks, looks only at key headers until it reaches a wanted key,
// and stops as soon as the answer is certain.
class WineRegistryScanner {
public:
    // `keyPaths` in order of preference, each with "\" between its parts; the value is taken
    // from the first of them that holds it.
    WineRegistryScanner(std::vector<std::string> keyPaths, std::string valueName);

    // Feeds the next chunk of the file; false once the answer is certain and no more is needed.
    bool feed(std::string_view chunk);
    // Call after the last chunk.
    void finish();

    std::optional<std::string> result() const;

    // Convenience for a whole file in memory.
    static std::optional<std::string>
    Find(std::string_view contents, std::vector<std::string> keyPaths, std::string valueName);

private:
    bool processLine(std::string_view line);
    bool keepScanningAfter(std::size_t index);
    bool matchesHeader(std::string_view line, std::size_t candidate) const;

    struct Candidate {
        std::string path;
        std::string escapedHeader; // "[" + path as Wine writes it, for a quick comparison
        bool plainAscii = true;
        bool seen = false; // its key has been passed
        std::optional<std::string> value;
    };

    std::vector<Candidate> candidates_;
    std::string valueName_;
    std::string pending_;            // an incomplete line carried over to the next chunk
    std::string continued_;          // a value line continued with "\" at its end
    std::size_t current_ = SIZE_MAX; // the candidate whose key we are in
    bool done_ = false;
};

// Decodes Wine's escapes in a quoted name or string ("\\", "\"", "\n", "\x263a", "\101"...)
// up to the closing quote (or `end` character); returns the text in UTF-8 and the position
// after the closing character, or nothing when the closing character is missing.
std::optional<std::pair<std::string, std::size_t>> UnescapeRegistryString(std::string_view text,
                                                                          char closing);

} // namespace vellumar
