#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ReplaceFile.h"

namespace vellumar {

namespace {

// Return codes in the shell's own numbering.
constexpr int kShellSuccess = 0;
constexpr int kShellSourceMissing = 0x7C; // "the path in the source or destination is invalid"
constexpr int kShellFailed = 0x402;       // "an unknown error occurred"

bool IsFolder(FileOperations& files, const std::string& path)
{
    const auto attributes = files.attributes(path);
    return attributes && (*attributes & FileAttribute::Directory);
}

bool CopyTree(FileOperations& files, const std::string& source, const std::string& target)
{
    if (!IsFolder(files, source))
        return ReplaceFileWithCopy(files, source, target);
    if (!files.createFolders(target))
        return false;
    bool ok = true;
    std::vector<std::string> names;
    files.search(JoinPath(source, "*.*"), [&names](const DirectoryEntry& entry) {
        if (entry.name != "." && entry.name != "..")
            names.push_back(entry.name);
        return true;
    });
    for (const std::string& name : names)
        ok = CopyTree(files, JoinPath(source, name), JoinPath(target, name)) && ok;
    return ok;
}

class ShellRun {
public:
    ShellRun(FileOperations& files, MessageService& messages, bool confirm)
        : files_(files)
        , messages_(messages)
        , confirm_(confirm)
    {}

    bool aborted() const { return aborted_; }

    bool confirmed(const std::string& text, const std::string& title)
    {
        if (!confirm_)
            return true;
        const int answer =
            messages_.ShowMessage(text, MessageStyle::YesNo | MessageStyle::Exclamation, title);
        aborted_ = answer != MessageResult::Yes;
        return !aborted_;
    }

    // The target of a copy or move: inside `destination` when that is an existing folder.
    std::string targetFor(const std::string& source, const std::string& destination)
    {
        if (IsFolder(files_, destination))
            return JoinPath(TrimTrailingBackslash(destination), LastPathComponent(source));
        return destination;
    }

    bool mayReplace(const std::string& target)
    {
        if (!files_.attributes(target))
            return true;
        return confirmed("This folder already contains a file named '" + LastPathComponent(target) +
                             "'.\n\nWould you like to replace the existing file?",
                         "Confirm File Replace");
    }

private:
    FileOperations& files_;
    MessageService& messages_;
    bool confirm_;
    bool aborted_ = false;
};

int RunShellOperation(ShellRun& run, FileOperations& files, const std::string& source,
                      const std::string& destination, ShellOperation operation)
{
    if (!files.attributes(source))
        return kShellSourceMissing;
    switch (operation) {
    case ShellOperation::Delete: {
        if (!run.confirmed("Are you sure you want to permanently delete '" +
                               LastPathComponent(source) + "'?",
                           "Confirm Delete"))
            return kShellSuccess;
        const bool ok =
            IsFolder(files, source) ? files.deleteTree(source) : files.deleteFile(source);
        return ok ? kShellSuccess : kShellFailed;
    }
    case ShellOperation::Copy: {
        const std::string target = run.targetFor(source, destination);
        if (!run.mayReplace(target))
            return kShellSuccess;
        return CopyTree(files, source, target) ? kShellSuccess : kShellFailed;
    }
    case ShellOperation::Move:
    case ShellOperation::Rename: {
        const std::string target =
            operation == ShellOperation::Move ? run.targetFor(source, destination) : destination;
        if (files.attributes(target) && !IsFolder(files, target)) {
            if (!run.mayReplace(target))
                return kShellSuccess;
            return files.renameOver(source, target) ? kShellSuccess : kShellFailed;
        }
        if (files.moveFile(source, target))
            return kShellSuccess;
        // Across file systems a move is a copy followed by a delete.
        if (!CopyTree(files, source, target))
            return kShellFailed;
        const bool removed =
            IsFolder(files, source) ? files.deleteTree(source) : files.deleteFile(source);
        return removed ? kShellSuccess : kShellFailed;
    }
    }
    return kShellFailed;
}

} // namespace

bool IsShellOperationSuccess(int returnCode, bool anyOperationsAborted)
{
    return (returnCode == 0 || returnCode == 7) && !anyOperationsAborted;
}

bool ShellFileOperation(FileOperations& files, MessageService& messages, std::string_view source,
                        std::string_view destination, ShellOperation operation, bool confirm)
{
    ShellRun run(files, messages, confirm);
    const int code =
        RunShellOperation(run, files, std::string(source), std::string(destination), operation);
    return IsShellOperationSuccess(code, run.aborted());
}

} // namespace vellumar
