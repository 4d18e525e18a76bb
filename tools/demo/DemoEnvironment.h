#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

class FileOperations;

struct DemoOptions {
    std::string folder;   // where to build; made absolute
    bool force = false;   // build even in a non-empty folder that holds no demo
    std::string userName; // the Wine prefix user's name
    // The stand-in simulator program (vellumar-standin) that the demo's fs9.exe starts; "" or a
    // missing file leaves a placeholder fs9.exe that does not run.
    std::string standinProgram;
};

struct DemoOutcome {
    bool built = false;
    std::string error;              // why nothing (or not everything) was built, for the user
    std::string folder;             // absolute
    std::string prefix;             // folder/prefix: the WINEPREFIX to use
    std::string home;               // folder/home: the VELLUMAR_HOME to use
    std::string cd;                 // the demo's disc image (a .cue): the VELLUMAR_CD to use
    bool replaced = false;          // an earlier demo (or, forced, other files) was replaced
    std::vector<std::string> notes; // things that did not work out but spoil nothing
    int files = 0;
    std::uint64_t bytes = 0;
};

// The file in a demo folder by which a later run recognises it as a demo.
inline constexpr std::string_view kDemoMarkerName = "vellumar-demo.txt";
inline constexpr std::string_view kDemoMarkerSignature = "Vellumar demo environment";

// Builds the demo environment in `options.folder`: a Wine prefix with a stand-in simulator in
// "prefix" and a program folder with a texture library, sounds and an audio CD image in "home". A
// missing or empty folder is used as it is; a folder with an earlier demo has the demo's own
// entries (prefix, home and the marker file) replaced; any other non-empty folder is refused unless
// forced, and even then only those three entries are replaced. Deterministic: two builds write the
// same bytes.
DemoOutcome BuildDemoEnvironment(FileOperations& files, const DemoOptions& options);

// A word as a POSIX shell reads it back unchanged: as it is when it holds only characters
// that need no quoting, else in single quotes.
std::string ShellQuoted(std::string_view word);

// The current user's name as Wine names the prefix's profile folder: $USER, else the account's
// name; never empty.
std::string CurrentUserName();

} // namespace vellumar
