#include "common/PathText.h"
#include "common/SimulatorProcess.h"
#include "common/WideText_win.h"

#include <windows.h>

#include <string>

namespace vellumar {

namespace {

// The system's own words for an error, e.g. "The system cannot find the file specified."
std::string SystemMessage(DWORD error)
{
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring message = length && text ? std::wstring(text, length) : std::wstring();
    if (text)
        LocalFree(text);
    while (!message.empty() && (message.back() == L'\n' || message.back() == L'\r' ||
                                message.back() == L' ' || message.back() == L'.'))
        message.pop_back();
    return message.empty() ? "error " + std::to_string(error) : FromWide(message);
}

class Win32SimulatorProcess final : public SimulatorProcess {
public:
    Started start(const std::string& folder, const std::string& executable) override
    {
        const std::string path = JoinPath(folder, executable);
        const std::wstring program = ToWide(path);
        std::wstring commandLine = L"\"" + program + L"\"";
        const std::wstring workingFolder = ToWide(folder);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_SHOWNOACTIVATE;
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0,
                            nullptr, workingFolder.c_str(), &startup, &process))
            return {false, path + ": " + SystemMessage(GetLastError())};
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
