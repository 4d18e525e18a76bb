#pragma once

#include <string_view>

namespace vellumar {

class DemoFolderWriter;

namespace demo {

struct DemoIniPaths;

// Writes the program folder of the demo below `homeFolder` (relative to the writer's root):
// cloud.ini, the texture library, splash pictures, situations, sounds and the help page.
void WriteHome(DemoFolderWriter& writer, std::string_view homeFolder, const DemoIniPaths& paths);

} // namespace demo
} // namespace vellumar
