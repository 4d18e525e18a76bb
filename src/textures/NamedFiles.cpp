#include "textures/NamedFiles.h"

#include "common/TextCompare.h"

#include <algorithm>

namespace vellumar {

NamedFiles TickNamedFiles(const TextList& offered, const TextList& names)
{
    auto same = [](const std::string& name) {
        return [&name](const std::string& other) { return EqualsIgnoreCase(name, other); };
    };
    NamedFiles result;
    for (const std::string& file : offered)
        result.ticks.emplace_back(file, names.empty() ||
                                            std::any_of(names.begin(), names.end(), same(file)));
    for (const std::string& name : names)
        if (std::none_of(offered.begin(), offered.end(), same(name)))
            result.notOffered.push_back(name);
    return result;
}

} // namespace vellumar
