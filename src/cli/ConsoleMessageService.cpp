#include "cli/ConsoleMessageService.h"

#include <ostream>

namespace vellumar {

ConsoleMessageService::ConsoleMessageService(std::ostream& out, Answers answers)
    : out_(out)
    , answers_(answers)
{}

int ConsoleMessageService::ShowMessage(const std::string& text, int style, const std::string& title)
{
    out_ << "== " << title << " ==\n" << text << '\n';
    out_.flush();
    return AnswerFor(answers_, style);
}

int ConsoleMessageService::AnswerFor(Answers answers, int style)
{
    const int buttons = style & MessageStyle::ButtonsMask;
    switch (answers) {
    case Answers::Yes:
        return buttons == MessageStyle::YesNo || buttons == MessageStyle::YesNoCancel
                   ? MessageResult::Yes
                   : MessageResult::OK;
    case Answers::No:
        if (buttons == MessageStyle::YesNo)
            return MessageResult::No;
        if (buttons == MessageStyle::OKOnly)
            return MessageResult::OK;
        return MessageResult::Cancel;
    case Answers::Default:
        break;
    }
    return DefaultAnswer(style);
}

int ConsoleMessageService::ShowSystemMessage(const std::string& text, int style,
                                             const std::string& title)
{
    return ShowMessage(text, style, title);
}

} // namespace vellumar
