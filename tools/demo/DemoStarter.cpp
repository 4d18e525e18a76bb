#include "demo/DemoStarter.h"

#include "common/FileOperations.h"
#include "demo/DemoFolderWriter.h"
#include "demo/DemoSounds.h"
#include "demo/DemoTextureSets.h"

#include <ostream>

namespace vellumar {

int WriteStarterFolder(const std::string& folder, FileOperations& files, std::ostream& err)
{
    if (!files.createFolders(folder)) {
        err << "vellumar-demo: could not make " << folder << '\n';
        return 1;
    }
    DemoFolderWriter writer(files, folder);
    writer.file("button.wav", demo::ButtonClickWave());
    // The folder [Set1] of the commented default cloud.ini names.
    const std::string set = "Texture/Clouds/My first set/";
    writer.folder(set);
    demo::DemoSets().front().content(0, [&](const std::string& name, const std::string& bytes) {
        // The demo's notes point at sets of the demo library, which a new user does not have.
        if (name != "notes.txt")
            writer.file(set + name, bytes);
    });
    if (writer.failed()) {
        err << "vellumar-demo: could not write " << writer.failure() << '\n';
        return 1;
    }
    return 0;
}

} // namespace vellumar
