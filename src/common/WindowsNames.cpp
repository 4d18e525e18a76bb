#include "common/WindowsNames.h"

#include "common/TextCompare.h"

namespace vellumar {

namespace {

bool IsDeviceName(std::string_view stem)
{
    if (stem.size() != 3 && stem.size() != 4)
        return false;
    for (const char* device : {"CON", "PRN", "AUX", "NUL"})
        if (EqualsIgnoreCase(stem, device))
            return true;
    return stem.size() == 4 && stem[3] >= '1' && stem[3] <= '9' &&
           (EqualsIgnoreCase(stem.substr(0, 3), "COM") ||
            EqualsIgnoreCase(stem.substr(0, 3), "LPT"));
}

} // namespace

std::string WhyWindowsRefusesName(std::string_view name)
{
    for (const char c : name) {
        if (static_cast<unsigned char>(c) < 0x20)
            return "its name holds a control character, which Windows does not allow";
        if (std::string_view("*?:\"<>|\\").find(c) != std::string_view::npos)
            return std::string("its name holds \"") + c + "\", which Windows does not allow";
    }
    // "NUL.bmp" and "nul .bmp" open the device as well.
    std::string_view stem = name.substr(0, name.find('.'));
    while (!stem.empty() && stem.back() == ' ')
        stem.remove_suffix(1);
    if (IsDeviceName(stem))
        return std::string(stem) + " is a device name on Windows";
    if (!name.empty() && (name.back() == '.' || name.back() == ' '))
        return "its name ends in a dot or a blank, which Windows drops";
    return {};
}

} // namespace vellumar
