#pragma once

#include <string>
#include <vector>

namespace vellumar::test {

// Writes a CD-DA disc image: `name`.bin with the tracks' sectors back to back, and `name`.cue
// naming it. Every byte of track N is N, so a test can tell which track it was played. Returns
// the path of the .cue.
std::string WriteCdImage(const std::string& folder, const std::string& name,
                         const std::vector<int>& trackSectors);

} // namespace vellumar::test
