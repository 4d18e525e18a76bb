#pragma once

#include "common/MessageService.h"

#include <iosfwd>

namespace vellumar {

// Messages of a run without windows: the title and the text go to the given stream (standard
// error), and every question is answered with its default button, or with a fixed answer.
class ConsoleMessageService final : public MessageService {
public:
    enum class Answers {
        Default, // the default button of every message
        Yes,     // Yes or OK to every question
        No,      // No or Cancel to every question (OK where there is nothing else)
    };

    explicit ConsoleMessageService(std::ostream& out, Answers answers = Answers::Default);

    void setAnswers(Answers answers) { answers_ = answers; }

    // The answer to a message of `style` under a policy.
    static int AnswerFor(Answers answers, int style);

    int ShowMessage(const std::string& text, int style, const std::string& title) override;
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override;

private:
    std::ostream& out_;
    Answers answers_;
};

} // namespace vellumar
