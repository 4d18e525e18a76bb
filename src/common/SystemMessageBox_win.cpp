#include "common/SystemMessageBox_win.h"

#include "common/WideText_win.h"

#include <windows.h>

namespace vellumar {

int Win32MessageService::ShowMessage(const std::string& text, int style, const std::string& title)
{
    return ShowSystemMessage(text, style, title);
}

int Win32MessageService::ShowSystemMessage(const std::string& text, int style,
                                           const std::string& title)
{
    return MessageBoxW(nullptr, ToWide(text).c_str(), ToWide(title).c_str(),
                       static_cast<UINT>(style));
}

} // namespace vellumar
