#pragma once

#include "common/MessageService.h"

namespace vellumar {

// The system's own message box. Style and result numbers are the system's, so they pass
// through unchanged.
class Win32MessageService final : public MessageService {
public:
    int ShowMessage(const std::string& text, int style, const std::string& title) override;
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override;
};

} // namespace vellumar
