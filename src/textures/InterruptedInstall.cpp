#include "textures/InterruptedInstall.h"

#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/ReplaceFile.h"
#include "textures/InstallJournal.h"
#include "textures/SimulatorOriginals.h"
#include "textures/TextureFolders.h"

#include <algorithm>

namespace vellumar {

namespace {

constexpr const char* kTitle = "Interrupted Install";

TextList CompleteInstall(FileOperations& files, const InstallJournal& journal,
                         const TextList& placed)
{
    TextList failed;
    for (const auto& [source, target] : journal.files)
        if (std::find(placed.begin(), placed.end(), target) == placed.end() &&
            ReplaceFileWith(files, source, target) != ReplaceResult::Replaced)
            failed.push_back(target);
    return failed;
}

} // namespace

InterruptedInstallChoice OfferInterruptedInstall(TextureServices& services, OriginalsStore& store,
                                                 const std::string& dataFolder)
{
    FileOperations& files = services.files;
    const std::string path = InstallJournalPath(dataFolder);
    if (files.kindOf(path) == PathKind::Missing)
        return InterruptedInstallChoice::None;
    const std::optional<InstallJournal> journal = ReadInstallJournal(files, path);
    if (!journal) { // nothing of it can be read: there is nothing to offer either
        files.deleteFile(path);
        return InterruptedInstallChoice::None;
    }
    const TextList placed = journal->placedTargets(files);
    const std::string count =
        std::to_string(placed.size()) + " of " + std::to_string(journal->files.size());
    const int answer = services.messages.ShowMessage(
        "*** " + journal->setName +
            " ***\n\nThe install of this set did not come to its end: " + count +
            " files were placed.\n\n"
            "Yes: complete the install.\n"
            "No: put the originals of the placed files back.\n"
            "Cancel: leave the files as they are and ask at the next start.",
        MessageStyle::YesNoCancel | MessageStyle::Exclamation | MessageStyle::DefaultButton3,
        kTitle);
    if (answer == MessageResult::Cancel)
        return InterruptedInstallChoice::Left;

    TextList failed;
    if (answer == MessageResult::Yes) {
        failed = CompleteInstall(files, *journal, placed);
    } else {
        const OriginalsPutBack done =
            PutBackOriginals(files, store, CompareOriginals(files, store, placed));
        failed = done.failed;
        failed.insert(failed.end(), done.damaged.begin(), done.damaged.end());
    }
    files.deleteFile(path);
    if (!failed.empty()) {
        std::string list;
        for (const std::string& target : failed)
            list += " " + target + "\n";
        services.messages.ShowMessage("These files could not be changed and are as they were:\n" +
                                          list,
                                      MessageStyle::OKOnly | MessageStyle::Critical, kTitle);
    }
    return answer == MessageResult::Yes ? InterruptedInstallChoice::Completed
                                        : InterruptedInstallChoice::PutBack;
}

} // namespace vellumar
