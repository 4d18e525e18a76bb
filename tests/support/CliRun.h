#pragma once

#include "cli/CliCommands.h"
#include "support/TestServices.h"

#include <sstream>
#include <string>
#include <vector>

namespace vellumar::test {

// Runs vellumar-cli commands (for the tests of tests/cli only) in the test's process on its fakes,
// and keeps what they printed. The answers a command asks for (Yes with --yes, No without) are
// given by the fake message box, as the console would give them.
struct CliRun {
    explicit CliRun(TestServices& fakes)
        : fakes(fakes)
    {}

    int operator()(const std::vector<std::string>& arguments)
    {
        out.str("");
        err.str("");
        return RunCliCommand(arguments, fakes.services, out, err,
                             [this](ConsoleMessageService::Answers answers) {
                                 fakes.messages.answerEverything = [answers](int style) {
                                     return ConsoleMessageService::AnswerFor(answers, style);
                                 };
                             });
    }

    TestServices& fakes;
    std::ostringstream out, err;
};

} // namespace vellumar::test
