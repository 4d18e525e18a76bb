#pragma once

#include <string>

namespace vellumar::bench {

// A Vellumar home with a large texture library: `sets` sets of `filesPerSet` files in groups of
// 50, a cloud.ini declaring every set, the data sub-folders, and a simulator folder with its
// executable, and a Wine prefix (folder + "/prefix") whose user has the simulator's per-user
// folder. Returns the home folder; the simulator folder is home + "/FS9".
std::string GenerateLibrary(const std::string& folder, int sets, int filesPerSet);

} // namespace vellumar::bench
