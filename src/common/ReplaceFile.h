#pragma once

#include <string>

namespace vellumar {

class FileOperations;

// Puts a copy of `source` at `target`, replacing whatever is there, without ever leaving
// `target` missing or half written: the copy goes to a temporary name in the target's folder
// and is then renamed over the target. On failure the target is as it was and no temporary
// file remains. A read-only target is refused.
bool ReplaceFileWithCopy(FileOperations& files, const std::string& source,
                         const std::string& target);

// The temporary name used next to `target` while it is being replaced.
std::string TemporarySiblingName(const std::string& target);

} // namespace vellumar
