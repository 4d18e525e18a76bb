#include "common/Trash.h"
#include "common/WideText_win.h"

#include <windows.h>

#include <shellapi.h>
#include <string>

namespace vellumar {

std::string MoveToTrash(const std::string& path)
{
    wchar_t full[MAX_PATH * 4];
    const DWORD length = GetFullPathNameW(ToWide(path).c_str(), MAX_PATH * 4, full, nullptr);
    if (length == 0 || length >= MAX_PATH * 4)
        return path + ": the path is too long for the recycle bin";
    // The shell takes a list of paths, each ended by a NUL, the list by another.
    std::wstring from(full, length);
    from.push_back(L'\0');
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = from.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
    const int result = SHFileOperationW(&operation);
    if (result != 0 || operation.fAnyOperationsAborted)
        return path + ": it could not be moved to the recycle bin (error " +
               std::to_string(result) + ")";
    return {};
}

} // namespace vellumar
