#pragma once

namespace vellumar {

class CommandSet;

// `status`: what is installed now. First each set of the library with all|some|none and how
// many of its files the simulator holds (name, state, placed/total, tab-separated), then a
// blank line, then each simulator file some set provides with whose bytes it holds (path, then
// the set or sets, or "original", "other" or "absent"). Digests are cached in the data folder,
// so a second run reads only the files that changed.
void AddStatusCommand(CommandSet& commands);

} // namespace vellumar
