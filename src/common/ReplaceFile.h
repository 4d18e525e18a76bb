#pragma once

#include <string>

namespace vellumar {

class FileOperations;

enum class ReplaceResult {
    Replaced,
    TargetLocked, // the target is read-only (or a folder), or could not be swapped out
    CopyFailed,   // the source could not be copied next to the target
};

// Puts a copy of `source` at `target`, replacing whatever is there, without ever leaving
// `target` missing or half written: the copy goes to a temporary name in the target's folder
// and is then renamed over the target. On failure the target is as it was and no temporary
// file remains. A read-only target is refused.
ReplaceResult ReplaceFileWith(FileOperations& files, const std::string& source,
                              const std::string& target);

// The same, as a plain success.
inline bool ReplaceFileWithCopy(FileOperations& files, const std::string& source,
                                const std::string& target)
{
    return ReplaceFileWith(files, source, target) == ReplaceResult::Replaced;
}

// The temporary name used next to `target` while it is being replaced.
std::string TemporarySiblingName(const std::string& target);

} // namespace vellumar
