// The folders the shell reports, in UTF-8, and the program folder's override.

#include "config/GetSystemFolders.h"
#include "config/SystemFolders.h"
#include "support/FakeMessageService.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <optional>

namespace vellumar {
namespace {

namespace fs = std::filesystem;

fs::path Utf8Path(const std::string& text)
{
    return fs::path(std::u8string(text.begin(), text.end()));
}

bool IsFolder(const std::string& utf8Path)
{
    std::error_code error;
    return !utf8Path.empty() && fs::is_directory(Utf8Path(utf8Path), error);
}

// Sets an environment variable for one test and puts the old value back after it.
class ScopedEnvironment {
public:
    ScopedEnvironment(const wchar_t* name, const wchar_t* value)
        : name_(name)
    {
        wchar_t old[32768];
        const DWORD length = GetEnvironmentVariableW(name, old, 32768);
        if (length > 0 && length < 32768)
            old_ = std::wstring(old, length);
        SetEnvironmentVariableW(name, value);
    }
    ~ScopedEnvironment() { SetEnvironmentVariableW(name_, old_ ? old_->c_str() : nullptr); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    const wchar_t* name_;
    std::optional<std::wstring> old_;
};

class WindowsSystemFoldersTest : public ::testing::Test {
protected:
    std::unique_ptr<SystemFolders> folders = CreatePlatformSystemFolders();
};

TEST_F(WindowsSystemFoldersTest, TheProgramFolderHoldsTheRunningExecutable)
{
    ScopedEnvironment unset(L"VELLUMAR_HOME", nullptr);
    wchar_t module[MAX_PATH] = {};
    ASSERT_GT(GetModuleFileNameW(nullptr, module, MAX_PATH), 0u);
    const std::string folder = folders->programFolder();
    ASSERT_TRUE(IsFolder(folder)) << folder;
    EXPECT_NE(folder.back(), '\\');
    EXPECT_TRUE(fs::exists(Utf8Path(folder) / fs::path(module).filename())) << folder;
}

TEST_F(WindowsSystemFoldersTest, VellumarHomeNamesTheProgramFolderInUtf8)
{
    ScopedEnvironment home(L"VELLUMAR_HOME", L"C:\\Programme\\Vell\u00fcmar \u96f2");
    EXPECT_EQ(folders->programFolder(), "C:\\Programme\\Vell\xC3\xBCmar \xE9\x9B\xB2");
}

TEST_F(WindowsSystemFoldersTest, TheShellFoldersExist)
{
    const std::string windows = folders->windowsFolder();
    EXPECT_TRUE(IsFolder(windows)) << windows;
    EXPECT_TRUE(IsFolder(windows + "\\system32")) << windows;
    const std::string documents = folders->documentsFolder();
    const std::string appData = folders->appDataFolder();
    EXPECT_TRUE(IsFolder(documents)) << documents;
    EXPECT_TRUE(IsFolder(appData)) << appData;
    EXPECT_NE(documents, appData);
}

TEST_F(WindowsSystemFoldersTest, GetSystemFoldersSucceedsWithoutAWord)
{
    test::FakeMessageService messages;
    SystemPaths paths;
    EXPECT_EQ(GetSystemFolders(*folders, messages, paths), "OK");
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(paths.WindowsPath, folders->windowsFolder());
    EXPECT_FALSE(paths.MyDocumentsPath.empty());
    EXPECT_FALSE(paths.AppDataPath.empty());
}

} // namespace
} // namespace vellumar
