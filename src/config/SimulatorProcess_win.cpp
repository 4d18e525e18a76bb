#include "common/PathText.h"
#include "common/SimulatorProcess.h"
#include "common/WideText_win.h"

#include <windows.h>

namespace vellumar {

namespace {

class Win32SimulatorProcess final : public SimulatorProcess {
public:
    Started start(const std::string& folder, const std::string& executable) override
    {
        const std::wstring program = ToWide(JoinPath(folder, executable));
        std::wstring commandLine = L"\"" + program + L"\"";
        const std::wstring workingFolder = ToWide(folder);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_SHOWNOACTIVATE;
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0,
                            nullptr, workingFolder.c_str(), &startup, &process))
            return {false, "CreateProcess failed with error " + std::to_string(GetLastError())};
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return {true, {}};
    }

    Running find(const std::string&) override
    {
        const HWND window = FindWindowA("FS98MAIN", nullptr);
        if (!window)
            return {};
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        return {true, static_cast<long>(processId)};
    }
};

} // namespace

std::unique_ptr<SimulatorProcess> CreatePlatformSimulatorProcess()
{
    return std::make_unique<Win32SimulatorProcess>();
}

} // namespace vellumar
