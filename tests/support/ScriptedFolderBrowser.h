#pragma once

#include "common/FolderBrowser.h"
#include "common/TextList.h"

#include <deque>

namespace vellumar::test {

// Answers with the folders queued by the test, then with "" (cancel); records every prompt.
class ScriptedFolderBrowser final : public FolderBrowser {
public:
    std::string BrowseForFolder(const std::string& prompt, int rootKind,
                                const std::string& initialFolder) override
    {
        prompts.push_back(prompt);
        lastRootKind = rootKind;
        lastInitialFolder = initialFolder;
        if (answers.empty())
            return {};
        std::string next = answers.front();
        answers.pop_front();
        return next;
    }

    std::deque<std::string> answers;
    TextList prompts;
    int lastRootKind = -1;
    std::string lastInitialFolder;
};

} // namespace vellumar::test
