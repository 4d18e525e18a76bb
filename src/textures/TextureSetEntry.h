#pragma once

#include <optional>
#include <string>

namespace vellumar {

// One texture set of the library, as the configuration declares it.
struct TextureSetEntry {
    std::string name;    // shown in the lists: the alias, else the set folder's name
    std::string dirName; // the set folder under DataFolder\Texture, e.g. "Clouds\Summer haze"
    std::string folder;  // the full path of the set folder
    bool random = true;  // takes part in AutoRandom
    std::optional<int> order;
    int section = 0;       // N of the [SetN] that declares it (members of a series share one)
    int compatibility = 5; // the set's category (see SetCategory)
};

} // namespace vellumar
