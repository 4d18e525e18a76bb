// The system registry, read through the UTF-16 entry points.

#include "common/WideText_win.h"
#include "config/Registry.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace vellumar {

namespace {

// What the open key is asked for: reading values and listing sub-keys, as the program always has.
constexpr REGSAM kAccess = KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS;

class KeyHandle {
public:
    KeyHandle() = default;
    ~KeyHandle()
    {
        if (key_)
            RegCloseKey(key_);
    }
    KeyHandle(const KeyHandle&) = delete;
    KeyHandle& operator=(const KeyHandle&) = delete;

    HKEY* out() { return &key_; }
    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

// The predefined root keys are small negative numbers in a handle-sized slot.
std::optional<HKEY> RootKey(std::uint32_t hive)
{
    if (hive < 0x80000000u || hive > 0x80000007u)
        return std::nullopt;
    const LONG_PTR signExtended = static_cast<std::int32_t>(hive);
    return reinterpret_cast<HKEY>(signExtended);
}

std::wstring KeyPathWithoutOuterSeparators(const std::string& keyPath)
{
    std::wstring key = ToWide(keyPath);
    const std::size_t first = key.find_first_not_of(L'\\');
    if (first == std::wstring::npos)
        return {};
    return key.substr(first, key.find_last_not_of(L'\\') - first + 1);
}

// The value's text in one view of the registry; nothing when the key or the value is missing or
// the value is not text.
std::optional<std::string> ReadFromView(HKEY root, const std::wstring& keyPath,
                                        const std::wstring& valueName, REGSAM view)
{
    KeyHandle key;
    if (RegOpenKeyExW(root, keyPath.c_str(), 0, kAccess | view, key.out()) != ERROR_SUCCESS)
        return std::nullopt;

    DWORD type = 0;
    DWORD size = 0;
    LONG status = RegQueryValueExW(key.get(), valueName.c_str(), nullptr, &type, nullptr, &size);
    std::vector<BYTE> data;
    // The value may grow between asking for its size and reading it.
    for (int attempt = 0; attempt < 8 && (status == ERROR_SUCCESS || status == ERROR_MORE_DATA);
         ++attempt) {
        data.resize(size);
        DWORD got = size;
        status = RegQueryValueExW(key.get(), valueName.c_str(), nullptr, &type, data.data(), &got);
        if (status == ERROR_SUCCESS) {
            data.resize(got);
            break;
        }
        size = std::max<DWORD>(got, size * 2 + 2);
    }
    if (status != ERROR_SUCCESS ||
        (type != REG_SZ && type != REG_EXPAND_SZ && type != REG_MULTI_SZ))
        return std::nullopt;

    std::wstring wide(data.size() / sizeof(wchar_t), L'\0');
    if (!wide.empty())
        std::memcpy(wide.data(), data.data(), wide.size() * sizeof(wchar_t));
    // Everything from the first NUL on is not part of the text: the terminator, the further
    // strings of a multi-string, or garbage a careless writer stored.
    if (const std::size_t nul = wide.find(L'\0'); nul != std::wstring::npos)
        wide.resize(nul);
    return FromWide(wide);
}

class WindowsRegistry final : public Registry {
public:
    std::optional<std::string> readString(std::uint32_t hive, const std::string& keyPath,
                                          const std::string& valueName) override
    {
        const std::optional<HKEY> root = RootKey(hive);
        if (!root)
            return std::nullopt;
        const std::wstring key = KeyPathWithoutOuterSeparators(keyPath);
        const std::wstring value = ToWide(valueName);
        // The simulator's installer is a 32-bit program; on a 64-bit system its keys sit in
        // the 32-bit view, which a 64-bit program reaches only by asking for it. As with the
        // prefix files on Linux, that view answers whenever the native one has no text.
        if (std::optional<std::string> text = ReadFromView(*root, key, value, 0))
            return text;
        return ReadFromView(*root, key, value, KEY_WOW64_32KEY);
    }

    std::string hostPath(const std::string& windowsPath) override { return windowsPath; }
};

} // namespace

std::unique_ptr<Registry> CreatePlatformRegistry()
{
    return std::make_unique<WindowsRegistry>();
}

} // namespace vellumar
