#include "cli/HelperProgram.h"
#include "common/WideText_win.h"

#include <windows.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <process.h>

namespace vellumar {

namespace {

// A command-line word as the C runtime splits it again: quoted, with backslashes before a quote
// doubled.
std::wstring Quoted(const std::wstring& word)
{
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (wchar_t c : word) {
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        quoted.append(c == L'"' ? 2 * backslashes + 1 : backslashes, L'\\');
        backslashes = 0;
        quoted += c;
    }
    quoted.append(2 * backslashes, L'\\');
    return quoted + L"\"";
}

} // namespace

std::string HelperProgramPath(const std::string& name)
{
    std::wstring self(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size()));
        if (length == 0)
            return {};
        if (length < self.size()) {
            self.resize(length);
            break;
        }
        self.resize(self.size() * 2);
    }
    const std::wstring helper =
        self.substr(0, self.find_last_of(L"\\/") + 1) + ToWide(name) + L".exe";
    return GetFileAttributesW(helper.c_str()) == INVALID_FILE_ATTRIBUTES ? std::string()
                                                                         : FromWide(helper);
}

std::string ReplaceProcessWith(const std::string& program,
                               const std::vector<std::string>& arguments)
{
    // Windows has no exec: the helper runs as a child and its status becomes ours.
    std::vector<std::wstring> words{Quoted(ToWide(program))};
    for (const std::string& argument : arguments)
        words.push_back(Quoted(ToWide(argument)));
    std::vector<const wchar_t*> argv;
    for (const std::wstring& word : words)
        argv.push_back(word.c_str());
    argv.push_back(nullptr);
    const intptr_t status = _wspawnv(_P_WAIT, ToWide(program).c_str(), argv.data());
    if (status == -1)
        return std::strerror(errno);
    std::exit(static_cast<int>(status));
}

} // namespace vellumar
