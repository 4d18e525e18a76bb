// System folders on Windows, as the shell reports them.

#include "common/WideText_win.h"
#include "config/SystemFolders.h"

#include <windows.h>

#include <shlobj.h>

namespace vellumar {

namespace {

std::string ShellFolder(int csidl)
{
    wchar_t path[MAX_PATH] = {};
    // S_FALSE means the folder does not exist, which is as good as not knowing it.
    if (SHGetFolderPathW(nullptr, csidl, nullptr, SHGFP_TYPE_CURRENT, path) != S_OK)
        return {};
    return FromWide(path);
}

std::string Environment(const wchar_t* name)
{
    const DWORD size = GetEnvironmentVariableW(name, nullptr, 0);
    if (size == 0)
        return {};
    std::wstring value(size, L'\0');
    const DWORD length = GetEnvironmentVariableW(name, value.data(), size);
    if (length == 0 || length >= size)
        return {};
    value.resize(length);
    return FromWide(value);
}

class WindowsSystemFolders final : public SystemFolders {
public:
    ProgramFolderChoice programFolderChoice() override
    {
        // Windows keeps a program's data beside it, as it always has.
        ProgramFolderFacts facts;
        facts.vellumarHome = Environment(L"VELLUMAR_HOME");
        facts.executableFolder = ExecutableFolder();
        return ChooseProgramFolder(facts);
    }

    std::string sharedDataFolder() override
    {
        const std::string folder = ExecutableFolder();
        const std::size_t slash = folder.find_last_of("\\/");
        if (slash != std::string::npos) {
            const std::string shared = folder.substr(0, slash) + "\\share\\vellumar";
            const DWORD attributes = GetFileAttributesW(ToWide(shared).c_str());
            if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY))
                return shared;
        }
        return folder;
    }

private:
    static std::string ExecutableFolder()
    {
        std::wstring path(MAX_PATH, L'\0');
        for (;;) {
            const DWORD length =
                GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
            if (length == 0)
                return {};
            if (length < path.size()) {
                path.resize(length);
                break;
            }
            path.resize(path.size() * 2); // cut short: try a larger buffer
        }
        const std::size_t slash = path.find_last_of(L"\\/");
        return slash == std::wstring::npos ? std::string() : FromWide(path.substr(0, slash));
    }

public:
    std::string windowsFolder() override
    {
        wchar_t path[MAX_PATH] = {};
        const UINT length = GetWindowsDirectoryW(path, MAX_PATH);
        if (length == 0 || length >= MAX_PATH)
            return {};
        return FromWide(std::wstring_view(path, length));
    }

    std::string documentsFolder() override { return ShellFolder(CSIDL_PERSONAL); }
    std::string appDataFolder() override { return ShellFolder(CSIDL_APPDATA); }
};

} // namespace

std::unique_ptr<SystemFolders> CreatePlatformSystemFolders()
{
    return std::make_unique<WindowsSystemFolders>();
}

} // namespace vellumar
