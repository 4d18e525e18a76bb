#include "common/MessageService.h"

namespace vellumar {

int DefaultAnswer(int style)
{
    int buttons[3] = {MessageResult::OK, 0, 0};
    int count = 1;
    switch (style & MessageStyle::ButtonsMask) {
    case MessageStyle::OKCancel:
        buttons[1] = MessageResult::Cancel;
        count = 2;
        break;
    case MessageStyle::AbortRetryIgnore:
        buttons[0] = MessageResult::Abort;
        buttons[1] = MessageResult::Retry;
        buttons[2] = MessageResult::Ignore;
        count = 3;
        break;
    case MessageStyle::YesNoCancel:
        buttons[0] = MessageResult::Yes;
        buttons[1] = MessageResult::No;
        buttons[2] = MessageResult::Cancel;
        count = 3;
        break;
    case MessageStyle::YesNo:
        buttons[0] = MessageResult::Yes;
        buttons[1] = MessageResult::No;
        count = 2;
        break;
    case MessageStyle::RetryCancel:
        buttons[0] = MessageResult::Retry;
        buttons[1] = MessageResult::Cancel;
        count = 2;
        break;
    default:
        break;
    }
    int index = (style & MessageStyle::DefaultButtonMask) / MessageStyle::DefaultButton2;
    if (index >= count)
        index = 0;
    return buttons[index];
}

} // namespace vellumar
