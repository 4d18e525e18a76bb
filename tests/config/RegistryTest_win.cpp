// The system registry as core reads it: values written here with the system's own calls (into
// the test's private Wine prefix, or a scratch key on Windows) and read back through
// CreatePlatformRegistry() and clsRegRead.

#include "config/Registry.h"
#include "config/clsRegRead.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

namespace vellumar {
namespace {

using namespace std::string_literals;

constexpr std::uint32_t kHkcu = RegistryHive::CurrentUser;

// The handles this process holds, from the system's handle list (GetProcessHandleCount always
// answers 0 under Wine); -1 when the list cannot be had.
long OpenHandleCount()
{
    struct Entry {
        PVOID object;
        ULONG_PTR processId;
        ULONG_PTR handle;
        ULONG access;
        USHORT creatorBackTraceIndex;
        USHORT objectTypeIndex;
        ULONG attributes;
        ULONG reserved;
    };
    struct List {
        ULONG_PTR count;
        ULONG_PTR reserved;
        Entry entries[1];
    };
    using Query = LONG(WINAPI*)(ULONG, PVOID, ULONG, PULONG);
    constexpr ULONG kExtendedHandleInformation = 64;
    constexpr LONG kBufferTooSmall = static_cast<LONG>(0xC0000004);
    const auto query = reinterpret_cast<Query>(reinterpret_cast<void (*)()>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    if (!query)
        return -1;
    std::vector<ULONG_PTR> buffer(1 << 16);
    for (LONG status = kBufferTooSmall; status != 0;) {
        ULONG needed = 0;
        const ULONG size = static_cast<ULONG>(buffer.size() * sizeof(ULONG_PTR));
        status = query(kExtendedHandleInformation, buffer.data(), size, &needed);
        if (status == kBufferTooSmall)
            buffer.resize(buffer.size() * 2);
        else if (status != 0)
            return -1;
    }
    const auto* list = reinterpret_cast<const List*>(buffer.data());
    long count = 0;
    for (ULONG_PTR i = 0; i < list->count; ++i)
        if (list->entries[i].processId == GetCurrentProcessId())
            ++count;
    return count;
}
constexpr std::uint32_t kHklm = RegistryHive::LocalMachine;

class WindowsRegistryTest : public ::testing::Test {
protected:
    // A key of its own for every run, so that what a crashed run left cannot answer for this one.
    const std::string base = "Software\\VellumarTest-" + std::to_string(GetCurrentProcessId());
    const std::wstring wideBase = std::wstring(base.begin(), base.end());
    std::unique_ptr<Registry> registry = CreatePlatformRegistry();

    void TearDown() override
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, wideBase.c_str());
        for (const REGSAM view : {REGSAM(KEY_WOW64_64KEY), REGSAM(KEY_WOW64_32KEY)}) {
            HKEY software = nullptr;
            if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software", 0, KEY_ALL_ACCESS | view,
                              &software) == ERROR_SUCCESS) {
                RegDeleteTreeW(software, wideBase.substr(9).c_str());
                RegCloseKey(software);
            }
        }
    }

    // Writes one value; false when the hive may not be written (HKLM for a limited user).
    static bool set(HKEY root, const std::wstring& key, const wchar_t* name, DWORD type,
                    const void* data, DWORD size, REGSAM view = 0)
    {
        HKEY handle = nullptr;
        if (RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE | view, nullptr,
                            &handle, nullptr) != ERROR_SUCCESS)
            return false;
        const LONG status =
            RegSetValueExW(handle, name, 0, type, static_cast<const BYTE*>(data), size);
        RegCloseKey(handle);
        return status == ERROR_SUCCESS;
    }

    // A string value with its terminating NUL, as programs normally store one.
    static bool setText(HKEY root, const std::wstring& key, const wchar_t* name,
                        const std::wstring& text, DWORD type = REG_SZ, REGSAM view = 0)
    {
        return set(root, key, name, type, text.c_str(),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)), view);
    }

    bool localMachineWritable()
    {
        return setText(HKEY_LOCAL_MACHINE, wideBase + L"\\Probe", L"x", L"x");
    }
};

TEST_F(WindowsRegistryTest, StringsComeBackInUtf8WhateverTheLetterCaseOfTheNames)
{
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, wideBase + L"\\Flight Simulator\\9.0", L"EXE Path",
                        L"C:\\Spiele\\Flugsimulator \u00c4\u00fc\\\u65e5\u672c"));
    const std::string expected =
        "C:\\Spiele\\Flugsimulator \xC3\x84\xC3\xBC\\\xE6\x97\xA5\xE6\x9C\xAC";
    EXPECT_EQ(registry->readString(kHkcu, base + "\\Flight Simulator\\9.0", "EXE Path"), expected);
    EXPECT_EQ(registry->readString(kHkcu, base + "\\FLIGHT SIMULATOR\\9.0", "exe path"), expected);
    // Separators around the key path do not make another key.
    EXPECT_EQ(registry->readString(kHkcu, "\\" + base + "\\Flight Simulator\\9.0\\", "EXE Path"),
              expected);
}

TEST_F(WindowsRegistryTest, TextKindsAreReadAsStoredUpToTheFirstNul)
{
    const std::wstring key = wideBase + L"\\Kinds";
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, key, L"Expand", L"%SystemRoot%\\Media", REG_EXPAND_SZ));
    const std::wstring multi = L"first\0second\0"s;
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, key, L"Multi", multi, REG_MULTI_SZ));
    const std::wstring embedded = L"abc\0def"s;
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, key, L"Embedded", embedded));
    // Stored without its terminator, as careless writers do.
    ASSERT_TRUE(set(HKEY_CURRENT_USER, key, L"Unterminated", REG_SZ, L"abcd", 4 * sizeof(wchar_t)));
    // An odd byte count leaves half a character, which is not text.
    ASSERT_TRUE(set(HKEY_CURRENT_USER, key, L"Odd", REG_SZ, L"xy", 3));
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, key, L"Empty", L""));
    ASSERT_TRUE(set(HKEY_CURRENT_USER, key, L"NoData", REG_SZ, nullptr, 0));

    const std::string path = base + "\\Kinds";
    EXPECT_EQ(registry->readString(kHkcu, path, "Expand"), "%SystemRoot%\\Media");
    EXPECT_EQ(registry->readString(kHkcu, path, "Multi"), "first");
    EXPECT_EQ(registry->readString(kHkcu, path, "Embedded"), "abc");
    EXPECT_EQ(registry->readString(kHkcu, path, "Unterminated"), "abcd");
    EXPECT_EQ(registry->readString(kHkcu, path, "Odd"), "x");
    EXPECT_EQ(registry->readString(kHkcu, path, "Empty"), "");
    EXPECT_EQ(registry->readString(kHkcu, path, "NoData"), "");
}

TEST_F(WindowsRegistryTest, NumbersAndBinaryDataAreNotText)
{
    const std::wstring key = wideBase + L"\\Numbers";
    const DWORD number = 42;
    const ULONGLONG wide = 42;
    const BYTE bytes[] = {'t', 0, 'x', 0, 0, 0};
    ASSERT_TRUE(set(HKEY_CURRENT_USER, key, L"Dword", REG_DWORD, &number, sizeof number));
    ASSERT_TRUE(set(HKEY_CURRENT_USER, key, L"Qword", REG_QWORD, &wide, sizeof wide));
    ASSERT_TRUE(set(HKEY_CURRENT_USER, key, L"Binary", REG_BINARY, bytes, sizeof bytes));
    for (const char* name : {"Dword", "Qword", "Binary"})
        EXPECT_EQ(registry->readString(kHkcu, base + "\\Numbers", name), std::nullopt) << name;
}

TEST_F(WindowsRegistryTest, MissingKeysValuesAndHivesGiveNothing)
{
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, wideBase + L"\\Key", L"Value", L"text"));
    EXPECT_EQ(registry->readString(kHkcu, base + "\\Key", "Other"), std::nullopt);
    EXPECT_EQ(registry->readString(kHkcu, base + "\\Missing", "Value"), std::nullopt);
    EXPECT_EQ(registry->readString(kHkcu, base + "\\Key\\Deeper", "Value"), std::nullopt);
    // The key exists, but nothing was ever stored as its default value.
    EXPECT_EQ(registry->readString(kHkcu, base + "\\Key", ""), std::nullopt);
    EXPECT_EQ(registry->readString(0x12345678u, base + "\\Key", "Value"), std::nullopt);
    EXPECT_EQ(registry->readString(0x80000009u, base + "\\Key", "Value"), std::nullopt);
}

TEST_F(WindowsRegistryTest, TheEmptyNameReadsTheDefaultValue)
{
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, wideBase + L"\\Default", nullptr, L"the default"));
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, wideBase + L"\\Default", L"Named", L"named"));
    EXPECT_EQ(registry->readString(kHkcu, base + "\\Default", ""), "the default");
    EXPECT_EQ(registry->readString(kHkcu, base + "\\Default", "Named"), "named");
}

TEST_F(WindowsRegistryTest, LocalMachineFallsBackToThe32BitView)
{
    if (!localMachineWritable())
        GTEST_SKIP() << "HKEY_LOCAL_MACHINE cannot be written by this user";
    const std::wstring key = wideBase + L"\\Simulator";
    const std::string path = base + "\\Simulator";
    // Where a 32-bit installer writes on a 64-bit system.
    ASSERT_TRUE(setText(HKEY_LOCAL_MACHINE, wideBase + L"\\Only32", L"EXE Path", L"C:\\FS9", REG_SZ,
                        KEY_WOW64_32KEY));
    EXPECT_EQ(registry->readString(kHklm, base + "\\Only32", "EXE Path"), "C:\\FS9");

    // Both views hold the key: the native one answers, the 32-bit one only for what it lacks.
    ASSERT_TRUE(setText(HKEY_LOCAL_MACHINE, key, L"Both", L"native", REG_SZ, KEY_WOW64_64KEY));
    ASSERT_TRUE(setText(HKEY_LOCAL_MACHINE, key, L"Both", L"32-bit", REG_SZ, KEY_WOW64_32KEY));
    ASSERT_TRUE(setText(HKEY_LOCAL_MACHINE, key, L"Only32", L"from 32", REG_SZ, KEY_WOW64_32KEY));
    EXPECT_EQ(registry->readString(kHklm, path, "Both"), "native");
    EXPECT_EQ(registry->readString(kHklm, path, "Only32"), "from 32");
    EXPECT_EQ(registry->readString(kHklm, path, "Neither"), std::nullopt);

    // A native value that is not text does not hide the 32-bit view's text, as on Linux.
    const DWORD number = 7;
    ASSERT_TRUE(
        set(HKEY_LOCAL_MACHINE, key, L"Kind", REG_DWORD, &number, sizeof number, KEY_WOW64_64KEY));
    ASSERT_TRUE(setText(HKEY_LOCAL_MACHINE, key, L"Kind", L"text", REG_SZ, KEY_WOW64_32KEY));
    EXPECT_EQ(registry->readString(kHklm, path, "Kind"), "text");
}

TEST_F(WindowsRegistryTest, ReadingLeavesNoKeyOpen)
{
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, wideBase + L"\\Handles", L"Value", L"text"));
    const DWORD number = 1;
    ASSERT_TRUE(set(HKEY_CURRENT_USER, wideBase + L"\\Handles", L"Number", REG_DWORD, &number,
                    sizeof number));
    const long before = OpenHandleCount();
    if (before < 0)
        GTEST_SKIP() << "the system's handle list cannot be read";
    // Every path through the reader: found, missing value, not text, missing key, both views.
    for (int i = 0; i < 50; ++i) {
        registry->readString(kHkcu, base + "\\Handles", "Value");
        registry->readString(kHkcu, base + "\\Handles", "Missing");
        registry->readString(kHkcu, base + "\\Handles", "Number");
        registry->readString(kHkcu, base + "\\NoKey", "Value");
    }
    EXPECT_EQ(OpenHandleCount(), before);
}

TEST_F(WindowsRegistryTest, WindowsPathsNeedNoMapping)
{
    EXPECT_EQ(registry->hostPath("C:\\Program Files\\FS9\\fs9.exe"),
              "C:\\Program Files\\FS9\\fs9.exe");
}

// clsRegRead over the real registry.
class clsRegReadOnWindowsTest : public WindowsRegistryTest {
protected:
    std::string read(std::uint32_t hive, const std::string& subKey, const std::string& value,
                     bool asHostPath = false)
    {
        clsRegRead reader(*registry, "C:\\WINDOWS");
        reader.RootHive = hive;
        reader.KeyPath = base;
        reader.SubKey = subKey;
        reader.ValueName = value;
        reader.AsHostPath = asHostPath;
        return reader.RegData();
    }
};

TEST_F(clsRegReadOnWindowsTest, ReadsTheValueOfKeyAndSubKey)
{
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, wideBase + L"\\9.0", L"EXE Path", L"D:\\Games\\FS9"));
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, wideBase + L"\\9.0", nullptr, L"default text"));
    EXPECT_EQ(read(kHkcu, "9.0", "EXE Path"), "D:\\Games\\FS9");
    EXPECT_EQ(read(kHkcu, "9.0", "EXE Path", true), "D:\\Games\\FS9");
    EXPECT_EQ(read(kHkcu, "9.0", ""), "default text");
}

TEST_F(clsRegReadOnWindowsTest, SystemRootStandsForTheWindowsFolder)
{
    const std::wstring key = wideBase + L"\\Sounds";
    ASSERT_TRUE(
        setText(HKEY_CURRENT_USER, key, L"Ding", L"%SystemRoot%\\Media\\ding.wav", REG_EXPAND_SZ));
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, key, L"Lower", L"%systemroot%\\x.wav"));
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, key, L"Other", L"%WINDIR%\\x.wav", REG_EXPAND_SZ));
    EXPECT_EQ(read(kHkcu, "Sounds", "Ding"), "C:\\WINDOWS\\Media\\ding.wav");
    EXPECT_EQ(read(kHkcu, "Sounds", "Lower"), "C:\\WINDOWS\\x.wav");
    // Only %SystemRoot% is known; other variables stay as stored.
    EXPECT_EQ(read(kHkcu, "Sounds", "Other"), "%WINDIR%\\x.wav");
}

TEST_F(clsRegReadOnWindowsTest, AnythingMissingOrNotTextReadsAsEmpty)
{
    const DWORD number = 9;
    ASSERT_TRUE(setText(HKEY_CURRENT_USER, wideBase + L"\\Sub", L"Text", L"t"));
    ASSERT_TRUE(
        set(HKEY_CURRENT_USER, wideBase + L"\\Sub", L"Number", REG_DWORD, &number, sizeof number));
    EXPECT_EQ(read(kHkcu, "Sub", "Text"), "t");
    EXPECT_EQ(read(kHkcu, "Sub", "Number"), "");
    EXPECT_EQ(read(kHkcu, "Sub", "Missing"), "");
    EXPECT_EQ(read(kHkcu, "Sub", ""), "");
    EXPECT_EQ(read(kHkcu, "NoSuchSub", "Text"), "");
    EXPECT_EQ(read(kHklm, "Sub", "Text"), ""); // another hive
}

} // namespace
} // namespace vellumar
