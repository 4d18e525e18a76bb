#pragma once

#include "MessageService.h"

#include <iosfwd>

namespace vellumar {

// Messages of a run without windows: the title and the text go to the given stream (standard
// error), and every question is answered with its default button, or with a fixed answer.
class ConsoleMessageService final : public MessageService {
public:
    explicit ConsoleMessageService(std::ostream& out);

    int ShowMessage(const std::string& text, int style, const std::string& title) override;
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override;

private:
    std::ostream& out_;
};

} // namespace vellumar
