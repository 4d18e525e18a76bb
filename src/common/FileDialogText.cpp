#include "common/FileDialogText.h"

#include "common/PathText.h"
#include "common/cSplit.h"

namespace vellumar {

std::string ToolkitFileFilter(std::string_view pairs)
{
    cSplit pieces;
    pieces.split(pairs, "|");
    std::string filter;
    for (std::size_t i = 1; i + 1 <= pieces.count(); i += 2) {
        const std::string description = pieces.item(i);
        std::string patterns = pieces.item(i + 1);
        if (description.empty())
            continue;
        for (char& c : patterns)
            if (c == ';')
                c = ' ';
        // The description names the patterns already; the toolkit wants them in parentheses.
        const std::string shown =
            description.find('(') == std::string::npos
                ? description + " (" + patterns + ")"
                : description.substr(0, description.find('(')) + "(" + patterns + ")";
        filter += (filter.empty() ? "" : ";;") + shown;
    }
    return filter;
}

std::string MultipleFilesAnswer(const TextList& chosenPaths)
{
    if (chosenPaths.empty())
        return {};
    if (chosenPaths.size() == 1)
        return chosenPaths.front();
    std::string answer = FolderOfPath(chosenPaths.front());
    for (const std::string& path : chosenPaths) {
        answer.push_back('\0');
        answer += LastPathComponent(path);
    }
    return answer;
}

} // namespace vellumar
