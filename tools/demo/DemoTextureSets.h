#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

class DemoFolderWriter;

namespace demo {

// Receives one file of a set: its bare name and its bytes.
using SetFileSink = std::function<void(const std::string& name, const std::string& bytes)>;

// One [SetN] section of the demo's cloud.ini and the folder (or numbered folders) behind it.
struct DemoSet {
    std::string dirName; // group and set joined with "\"; for a series, the part before the number
    std::string alias;   // "" shows the folder name
    int from = 0;        // a numbered series from..to when `to` is not 0
    int to = 0;
    bool random = true;        // may AutoRandom pick it
    int order = 0;             // its place in the AutoRandom order; 0 writes no Order key
    std::string about;         // the comment above its section, one or more lines without ";"
    std::string randomComment; // the comment after Random=off, when there is one
    std::function<void(int number, const SetFileSink& sink)> content;
};

// The sets of the demo library, in the order of their sections.
const std::vector<DemoSet>& DemoSets();

// The folders of a set under Texture, "/" between group and set: one, or one per number of a
// series ("Clouds/t-storm  1" - names beginning with t-storm take two blanks, as on disk).
std::vector<std::string> SetFolders(const DemoSet& set);

// Writes every set and the option sets (Texture/Option/...) below `textureFolder`, a path
// relative to the writer's root.
void WriteTextureLibrary(DemoFolderWriter& writer, std::string_view textureFolder);

// Texts the simulator reads, shared by the sets and by the simulator's own folder.
std::string CloudFileText(std::string_view title, std::string_view kind,
                          const std::vector<std::string>& textures, int base, int tops,
                          std::string_view coverage);
std::string SunEffectText(std::string_view title, std::string_view sun, std::string_view corona,
                          const std::vector<std::string>& flares, std::string_view colour);
std::string EffectFileText(std::string_view title, std::string_view texture);

} // namespace demo
} // namespace vellumar
