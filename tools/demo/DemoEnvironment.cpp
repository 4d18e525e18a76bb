#include "demo/DemoEnvironment.h"

#include "common/FileOperations.h"
#include "common/PathText.h"
#include "demo/DemoCd.h"
#include "demo/DemoCloudIni.h"
#include "demo/DemoFolderWriter.h"
#include "demo/DemoHome.h"
#include "demo/DemoPrefix.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

namespace vellumar {

namespace {

// The entries of a demo folder that belong to the demo; nothing else is ever removed.
constexpr std::string_view kPrefixName = "prefix";
constexpr std::string_view kHomeName = "home";

std::string AbsoluteFolder(const std::string& folder)
{
    std::error_code error;
    std::filesystem::path path = std::filesystem::absolute(folder, error);
    if (error)
        path = folder;
    std::string text = path.lexically_normal().string();
    return TrimTrailingBackslash(text);
}

std::vector<std::string> EntriesOf(FileOperations& files, const std::string& folder)
{
    std::vector<std::string> entries;
    files.search(JoinPath(folder, "*"), [&entries](const DirectoryEntry& entry) {
        if (entry.name != "." && entry.name != "..")
            entries.push_back(entry.name);
        return true;
    });
    return entries;
}

bool IsDemoFolder(FileOperations& files, const std::string& folder)
{
    const std::optional<std::string> marker = files.readFile(JoinPath(folder, kDemoMarkerName));
    return marker && marker->starts_with(kDemoMarkerSignature);
}

std::string MarkerText(const DemoOutcome& outcome)
{
    return std::string(kDemoMarkerSignature) +
           "\n\n"
           "Built by vellumar-cli demo. To use it:\n\n"
           "    export WINEPREFIX=" +
           ShellQuoted(outcome.prefix) + "\n    export VELLUMAR_HOME=" + ShellQuoted(outcome.home) +
           "\n    export VELLUMAR_CD=" + ShellQuoted(outcome.cd) +
           "\n\n"
           "Running vellumar-cli demo on this folder again rebuilds the demo: it replaces\n"
           "prefix/, home/ and this file, and leaves everything else alone.\n"
           "home/help/index.html tells what the demo holds and what to try.\n";
}

} // namespace

std::string ShellQuoted(std::string_view word)
{
    const bool plain =
        !word.empty() && word.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                "abcdefghijklmnopqrstuvwxyz"
                                                "0123456789_-./:,+=@%") == std::string_view::npos;
    if (plain)
        return std::string(word);
    std::string quoted = "'";
    for (char c : word)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

DemoOutcome BuildDemoEnvironment(FileOperations& files, const DemoOptions& options)
{
    DemoOutcome outcome;
    if (options.folder.empty()) {
        outcome.error = "no folder given";
        return outcome;
    }
    outcome.folder = AbsoluteFolder(options.folder);
    outcome.prefix = JoinPath(outcome.folder, kPrefixName);
    outcome.home = JoinPath(outcome.folder, kHomeName);
    outcome.cd = JoinPath(JoinPath(outcome.home, demo::kDemoCdFolder),
                          std::string(demo::kDemoCdName) + ".cue");

    if (const std::optional<std::uint32_t> attributes = files.attributes(outcome.folder)) {
        if (!(*attributes & FileAttribute::Directory)) {
            outcome.error = outcome.folder + " is a file, not a folder";
            return outcome;
        }
        const std::vector<std::string> entries = EntriesOf(files, outcome.folder);
        if (!entries.empty()) {
            const bool demo = IsDemoFolder(files, outcome.folder);
            if (!demo && !options.force) {
                outcome.error = outcome.folder +
                                " is not empty and holds no Vellumar demo; nothing was changed.\n"
                                "Choose a new or empty folder, or add --force to build the demo "
                                "there anyway\n(this replaces its entries prefix, home and " +
                                std::string(kDemoMarkerName) + ", and nothing else).";
                return outcome;
            }
            // The marker goes last, so that a removal that fails half-way still leaves a
            // folder that the next run recognises.
            for (std::string_view name : {kPrefixName, kHomeName, kDemoMarkerName}) {
                const std::string path = JoinPath(outcome.folder, name);
                if (!files.attributes(path).has_value()) {
                    std::error_code error; // a dangling link has no attributes but is there
                    if (!std::filesystem::is_symlink(path, error))
                        continue;
                }
                outcome.replaced = true;
                if (!files.deleteTree(path)) {
                    outcome.error =
                        "could not remove " + path +
                        " (is a file in it read-only or in use?); the demo was not rebuilt";
                    return outcome;
                }
            }
        }
    } else if (!files.createFolders(outcome.folder)) {
        outcome.error = "could not create the folder " + outcome.folder;
        return outcome;
    }

    DemoFolderWriter writer(files, outcome.folder);
    // The marker comes first: a build that fails half-way is still recognised and replaced
    // by the next run.
    writer.textFile(kDemoMarkerName, MarkerText(outcome));
    std::string simulator = JoinPath(outcome.prefix, "drive_c");
    for (std::size_t start = 0; start <= demo::kSimulatorInDriveC.size();) {
        const std::size_t slash =
            std::min(demo::kSimulatorInDriveC.find('/', start), demo::kSimulatorInDriveC.size());
        simulator = JoinPath(simulator, demo::kSimulatorInDriveC.substr(start, slash - start));
        start = slash + 1;
    }
    std::string standin;
    if (!options.standinProgram.empty()) {
        if (files.attributes(options.standinProgram).has_value())
            standin = options.standinProgram;
        else
            outcome.notes.push_back("the simulator's stand-in " + options.standinProgram +
                                    " is not there: the demo's fs9.exe is a placeholder that "
                                    "does not run");
    }
    for (std::string& note : demo::WriteWinePrefix(writer, kPrefixName, options.userName, standin))
        outcome.notes.push_back(std::move(note));
    demo::WriteHome(writer, kHomeName, {outcome.home, simulator});

    outcome.files = writer.filesWritten();
    outcome.bytes = writer.bytesWritten();
    if (writer.failed()) {
        outcome.error = "could not write " + writer.failure() +
                        "; the demo is incomplete (run the command again to rebuild it)";
        return outcome;
    }
    outcome.built = true;
    return outcome;
}

} // namespace vellumar
