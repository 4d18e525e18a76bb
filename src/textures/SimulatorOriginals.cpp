#include "textures/SimulatorOriginals.h"

#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/ReplaceFile.h"
#include "common/Sha256.h"
#include "common/TextCompare.h"
#include "textures/TextureFolders.h"

#include <algorithm>

namespace vellumar {

namespace {

constexpr const char* kTitle = "Restore Simulator Originals";

bool Differs(FileOperations& files, const KeptOriginal& original)
{
    const PathKind kind = files.kindOf(original.path);
    if (original.absent())
        return kind != PathKind::Missing;
    if (kind != PathKind::File || files.fileSize(original.path) != original.size)
        return true;
    return FileSha256(files, original.path) != original.hash;
}

// At most a screenful of paths, then how many more.
std::string PathLines(const TextList& paths)
{
    constexpr std::size_t kShown = 20;
    std::string lines;
    for (std::size_t i = 0; i < paths.size() && i < kShown; ++i)
        lines += " " + paths[i] + "\n";
    if (paths.size() > kShown)
        lines += " ... and " + std::to_string(paths.size() - kShown) + " more\n";
    return lines;
}

std::string Files(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " file" : " files");
}

} // namespace

std::vector<OriginalNow> CompareOriginals(FileOperations& files, OriginalsStore& store,
                                          const TextList& paths, TextList* unknown)
{
    const std::vector<KeptOriginal> kept = store.entries();
    std::vector<OriginalNow> chosen;
    auto add = [&](const KeptOriginal& original) {
        chosen.push_back({original, Differs(files, original)});
    };
    if (paths.empty()) {
        for (const KeptOriginal& original : kept)
            add(original);
        return chosen;
    }
    for (const std::string& path : paths) {
        const std::string spelled = files.resolve(path);
        const auto found = std::find_if(kept.begin(), kept.end(), [&](const KeptOriginal& entry) {
            return EqualsIgnoreCase(entry.path, spelled);
        });
        if (found != kept.end())
            add(*found);
        else if (unknown)
            unknown->push_back(path);
    }
    return chosen;
}

OriginalsPutBack PutBackOriginals(FileOperations& files, OriginalsStore& store,
                                  const std::vector<OriginalNow>& originals)
{
    OriginalsPutBack done;
    for (const OriginalNow& now : originals) {
        if (!now.differs)
            continue;
        const KeptOriginal& original = now.original;
        if (original.absent()) {
            // Only a plain file goes: a folder made since is the user's.
            if (files.kindOf(original.path) == PathKind::Folder)
                continue;
            (files.deleteFile(original.path) ? done.removed : done.failed).push_back(original.path);
            continue;
        }
        if (!store.verifiedContent(original)) {
            done.damaged.push_back(original.path);
            continue;
        }
        const bool replaced = ReplaceFileWith(files, store.contentPath(original.hash),
                                              original.path) == ReplaceResult::Replaced;
        (replaced ? done.restored : done.failed).push_back(original.path);
    }
    return done;
}

bool RestoreSimulatorOriginals(TextureServices& services, OriginalsStore& store,
                               const TextList& paths)
{
    std::vector<OriginalNow> originals = CompareOriginals(services.files, store, paths);
    std::erase_if(originals, [](const OriginalNow& now) { return !now.differs; });
    if (originals.empty()) {
        services.messages.ShowMessage(
            "The simulator's files are as Vellumar first found them: nothing to restore.",
            MessageStyle::OKOnly | MessageStyle::Information, kTitle);
        return paths.empty();
    }
    TextList changing;
    for (const OriginalNow& now : originals)
        changing.push_back(now.original.path);
    const int answer = services.messages.ShowMessage(
        Files(changing.size()) +
            " of the simulator will change back to the originals Vellumar kept:\n" +
            PathLines(changing) + "\nRestore them now?",
        MessageStyle::YesNo | MessageStyle::Question | MessageStyle::DefaultButton2, kTitle);
    if (answer != MessageResult::Yes)
        return false;

    services.showStatus("Restoring originals");
    const OriginalsPutBack done = PutBackOriginals(services.files, store, originals);
    std::string report = Files(done.restored.size()) + " restored, " + Files(done.removed.size()) +
                         " added by Vellumar removed.";
    if (!done.damaged.empty())
        report +=
            "\n\nThese kept originals are damaged and were not used:\n" + PathLines(done.damaged);
    if (!done.failed.empty())
        report += "\n\nThese files could not be changed (read-only, or in use) and are as they "
                  "were:\n" +
                  PathLines(done.failed);
    services.messages.ShowMessage(
        report,
        MessageStyle::OKOnly |
            (done.complete() ? MessageStyle::Information : MessageStyle::Critical),
        kTitle);
    return done.complete();
}

} // namespace vellumar
