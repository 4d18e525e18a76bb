#pragma once

#include "common/MessageService.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace vellumar::test {

// Records every message and answers from a script of next answers; with the script empty it
// answers with the default button.
class FakeMessageService final : public MessageService {
public:
    struct Shown {
        std::string title;
        std::string text;
        int style = 0;
        bool system = false; // the plain system message box
    };

    int ShowMessage(const std::string& text, int style, const std::string& title) override;
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override;

    void answerNext(int result) { answers_.push_back(result); }
    // Answers every message without a scripted answer; by default the default button.
    std::function<int(int style)> answerEverything;

    const std::vector<Shown>& shown() const { return shown_; }
    // The latest message; when none was shown the test fails and an empty message comes back.
    const Shown& last() const;
    bool empty() const { return shown_.empty(); }

private:
    int answer(int style);

    std::deque<int> answers_;
    std::vector<Shown> shown_;
};

} // namespace vellumar::test
