#pragma once

#include <string>

namespace vellumar {

// Moves a file or folder to the desktop's trash, where the user can take it back: on Windows
// the recycle bin, elsewhere the freedesktop.org trash (the user's own in $XDG_DATA_HOME, or the
// trash at the top of the path's own file system when that is another one). Never deletes.
// "" when it is in the trash, else why not; the path is then left as it was.
std::string MoveToTrash(const std::string& path);

} // namespace vellumar
