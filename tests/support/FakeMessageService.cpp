#include "support/FakeMessageService.h"

#include <gtest/gtest.h>

namespace vellumar::test {

int FakeMessageService::answer(int style)
{
    if (answers_.empty())
        return answerEverything ? answerEverything(style) : DefaultAnswer(style);
    const int next = answers_.front();
    answers_.pop_front();
    return next;
}

int FakeMessageService::ShowMessage(const std::string& text, int style, const std::string& title)
{
    shown_.push_back({title, text, style, false});
    return answer(style);
}

int FakeMessageService::ShowSystemMessage(const std::string& text, int style,
                                          const std::string& title)
{
    shown_.push_back({title, text, style, true});
    return answer(style);
}

const FakeMessageService::Shown& FakeMessageService::last() const
{
    static const Shown none{};
    if (shown_.empty()) {
        ADD_FAILURE() << "no message was shown";
        return none;
    }
    return shown_.back();
}

} // namespace vellumar::test
