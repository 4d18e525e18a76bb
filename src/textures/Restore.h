#pragma once

#include "common/TextList.h"
#include "textures/TextureFolders.h"

namespace vellumar {

// Puts the simulator's originals of the ticked files back from the backup folder, after
// confirmation. Whatever folder an installed file went to, the original goes back to the
// texture folder, the only folder backups come from. False when the user cancelled or a file
// could not be put back.
bool RestoreOriginals(TextureServices& services, const TextureFolders& folders,
                      const TickList& cloudFiles, const TickList& optionFiles);

// Copies each backup back into the texture folder; the backup itself stays. A file that could
// not be put back is then as it was; those are named to the user and the result is False.
bool CopyBackToSimulator(TextureServices& services, const TextureFolders& folders,
                         const TextList& names);

} // namespace vellumar
