#include "common/WildcardMatch.h"

#include "common/TextCompare.h"

namespace vellumar {

bool HasWildcards(std::string_view name)
{
    return name.find_first_of("*?") != std::string_view::npos;
}

bool WildcardMatch(std::string_view pattern, std::string_view name)
{
    if (pattern == "*" || pattern == "*.*")
        return true;

    // Greedy matching with one back-tracking point: the last "*" seen.
    std::size_t p = 0, n = 0;
    std::size_t starAt = std::string_view::npos, resumeName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starAt = p++;
            resumeName = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' || ToLowerAscii(pattern[p]) == ToLowerAscii(name[n]))) {
            ++p;
            ++n;
        } else if (starAt != std::string_view::npos) {
            p = starAt + 1;
            n = ++resumeName;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    // Like Windows, a trailing ".*" also matches a name without any extension.
    if (p + 2 == pattern.size() && pattern[p] == '.' && pattern[p + 1] == '*')
        return true;
    if (p + 1 == pattern.size() && pattern[p] == '.')
        return true;
    return p == pattern.size();
}

} // namespace vellumar
