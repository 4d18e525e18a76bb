#pragma once

#include <string>

namespace vellumar {

// Message box styles and results, numbered as the system's message box numbers them, because
// the numbers themselves are part of how every caller states a question.
namespace MessageStyle {
inline constexpr int OKOnly = 0;
inline constexpr int OKCancel = 1;
inline constexpr int AbortRetryIgnore = 2;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int RetryCancel = 5;
inline constexpr int Critical = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
inline constexpr int DefaultButton2 = 256;
inline constexpr int DefaultButton3 = 512;

inline constexpr int ButtonsMask = 0x0F;
inline constexpr int IconMask = 0xF0;
inline constexpr int DefaultButtonMask = 0xF00;
} // namespace MessageStyle

namespace MessageResult {
inline constexpr int OK = 1;
inline constexpr int Cancel = 2;
inline constexpr int Abort = 3;
inline constexpr int Retry = 4;
inline constexpr int Ignore = 5;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
} // namespace MessageResult

// The answer a message box gives when the user just presses Enter: the default button of its
// button set (first button unless the style names the second or third).
int DefaultAnswer(int style);

// The only way core talks to the user.
class MessageService {
public:
    virtual ~MessageService() = default;

    // The program's own message box; returns the pressed button as a MessageResult number.
    virtual int ShowMessage(const std::string& text, int style, const std::string& title) = 0;

    // The plain system message box, used before the program's own one can be shown and by the
    // few helpers that report straight to the user.
    virtual int ShowSystemMessage(const std::string& text, int style, const std::string& title) = 0;
};

} // namespace vellumar
