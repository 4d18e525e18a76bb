#include "common/ProcessLauncher.h"
#include "common/WideText_win.h"

#include <windows.h>

#include <shellapi.h>

namespace vellumar {

namespace {

class Win32ProcessLauncher final : public ProcessLauncher {
public:
    bool openWithDesktop(const std::string& path) override
    {
        const std::wstring wide = ToWide(path);
        const auto result = reinterpret_cast<INT_PTR>(
            ShellExecuteW(nullptr, L"open", wide.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
        return result > 32;
    }
};

} // namespace

std::unique_ptr<ProcessLauncher> CreatePlatformProcessLauncher()
{
    return std::make_unique<Win32ProcessLauncher>();
}

} // namespace vellumar
