#pragma once

#include "common/TextList.h"

#include <string>
#include <string_view>

namespace vellumar {

class EventPump;
class FileOperations;
class MessageService;

// Existence tests answer "OK" or "Error" (see ResultText.h).

// "OK" when a directory search for the path or wildcard pattern finds at least one entry.
std::string FileExists(FileOperations& files, std::string_view pathOrPattern);
// "OK" when the path, trimmed, names an existing folder; a plain file gives "Error".
std::string FolderExists(FileOperations& files, std::string_view path);
// Creates every folder along the path; "Error" when that fails.
std::string MakeFolderPath(FileOperations& files, std::string_view folder);

// The listers trim trailing separators from the folder first, let pending window events run at
// every entry, and append to `list` without clearing it.

// Appends folder + separator + name for every file (not folder) matching `pattern`.
void ListFiles(FileOperations& files, EventPump& events, std::string_view folder,
               std::string_view pattern, TextList& list);
// As ListFiles, then the same for every subfolder, depth first: a folder's own files come
// before those of its subfolders.
void ListFilesInTree(FileOperations& files, EventPump& events, std::string_view folder,
                     std::string_view pattern, TextList& list);
// Appends the bare names of the subfolders, never "." or "..".
void ListSubfolders(FileOperations& files, EventPump& events, std::string_view folder,
                    TextList& list);
// Depth-first search for a file name below `startFolder`. Does nothing when `found` is already
// true; otherwise sets it when the file is found and stores its folder in `foundFolder`.
void FindFileInTree(FileOperations& files, EventPump& events, std::string_view startFolder,
                    std::string_view fileName, bool& found, std::string* foundFolder = nullptr);

// Why `path`, which is there, cannot be read as a file, as the end of a sentence about it
// (" is a folder, not a file."); "" when it is a file or a link to one, or not there at all.
// A named pipe would make a reader wait for a writer that never comes, so it is caught here.
std::string WhyNotAPlainFile(FileOperations& files, const std::string& path);

// The shell's file operation codes.
enum class ShellOperation { Move = 1, Copy = 2, Delete = 3, Rename = 4 };

// The shell's verdict: its return code 7 counts as success, as it did for the callers that
// grew up with it; an operation the user aborted never does.
bool IsShellOperationSuccess(int returnCode, bool anyOperationsAborted);

// Moves, copies, deletes or renames one file or folder the way the shell does: a copy or move
// into an existing folder lands inside it, an existing target file is replaced, and a folder is
// copied or deleted with everything in it. With `confirm` the user is asked before a file is
// replaced or deleted; without it nothing is asked. True on success.
bool ShellFileOperation(FileOperations& files, MessageService& messages, std::string_view source,
                        std::string_view destination, ShellOperation operation, bool confirm);

} // namespace vellumar
