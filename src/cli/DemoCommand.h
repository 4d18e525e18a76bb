#pragma once

namespace vellumar {

class CommandSet;

// demo DIR [--force]: builds a demo installation. Only builds that carry the demo generator
// (it draws its pictures with Qt) have the command; the others register nothing here.
void AddDemoCommand(CommandSet& commands);

} // namespace vellumar
