#pragma once

#include "common/TextList.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vellumar {

class FileOperations;

enum class ReplaceResult {
    Replaced,
    TargetLocked, // the target is read-only (or a folder), or could not be swapped out
    CopyFailed,   // the source could not be copied next to the target
    Refused,      // the file operations refused the change for a reason of their own
};

// Puts a copy of `source` at `target`, replacing whatever is there, without ever leaving
// `target` missing or half written: the copy goes to a temporary name in the target's folder
// and is then renamed over the target. On failure the target is as it was and no temporary
// file remains. A read-only target is refused, and so is one beside a read-only file that
// differs from it only in letter case (which Windows would take for the target); `blockedBy`
// then names the file that stopped it; for a change the file operations refuse themselves it
// receives their reason (FileOperations::refusalReason). A target that is a link is replaced by a
// plain file: whatever the link points to is never written.
ReplaceResult ReplaceFileWith(FileOperations& files, const std::string& source,
                              const std::string& target, std::string* blockedBy = nullptr);

// The same, as a plain success.
inline bool ReplaceFileWithCopy(FileOperations& files, const std::string& source,
                                const std::string& target)
{
    return ReplaceFileWith(files, source, target) == ReplaceResult::Replaced;
}

// The temporary name used next to `target` while it is being replaced:
// ".vellumar-<process id>-<number>.tmp" in the target's folder. Every temporary file the
// program makes has this form, and the process id tells whether its writer still runs.
std::string TemporarySiblingName(const std::string& target);

// The process id in a bare name of that exact form; nothing for any other name.
std::optional<std::uint32_t> TemporaryNameOwner(std::string_view name);

// The process id in a bare name the program made as PREFIX<process id>-<number>SUFFIX (its
// temporary files, an import's unpacking folder, a first start's folder under construction);
// nothing for any other name. Digits only on both sides of the dash, so a name of the user's
// that merely starts alike is never taken for one.
std::optional<std::uint32_t> ProcessNameOwner(std::string_view name, std::string_view prefix,
                                              std::string_view suffix = {});

// Removes what replacements in `folder` left behind when their program was killed or the
// power went: files named exactly as above whose process no longer runs. Another running
// copy of the program (vellumar-cli beside the window, say) keeps the file it is writing.
// Returns the paths removed.
TextList RemoveLeftoverTemporaries(FileOperations& files, const std::string& folder);

} // namespace vellumar
