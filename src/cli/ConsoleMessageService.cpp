#include "ConsoleMessageService.h"

#include <ostream>

namespace vellumar {

ConsoleMessageService::ConsoleMessageService(std::ostream& out)
    : out_(out)
{}

int ConsoleMessageService::ShowMessage(const std::string& text, int style, const std::string& title)
{
    out_ << "== " << title << " ==\n" << text << '\n';
    out_.flush();
    return DefaultAnswer(style);
}

int ConsoleMessageService::ShowSystemMessage(const std::string& text, int style,
                                             const std::string& title)
{
    return ShowMessage(text, style, title);
}

} // namespace vellumar
