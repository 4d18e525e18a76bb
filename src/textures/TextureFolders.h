#pragma once

#include "common/TextList.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vellumar {

class Clock;
class EventPump;
class FileOperations;
class MessageService;
struct ProgramPaths;

// The folders an install, backup or restore works between.
struct TextureFolders {
    std::string FsPath;        // the simulator's folder
    std::string FsTexturePath; // its main texture folder: the only source and target of backups
    std::string BackupFolder;  // where the simulator's originals are kept, by bare name
    std::string DataFolder;    // the texture library's data folder
};

// The backup folder of a data folder.
std::string BackupFolderOf(const std::string& dataFolder);

// Option sets are the sub-folders of DataFolder\Texture\Option.
std::string OptionGroupFolder(const std::string& dataFolder);
TextList OptionSetNames(FileOperations& files, EventPump& events, const std::string& dataFolder);

// The folders of the running program: the chosen simulator and the data folder.
TextureFolders TextureFoldersOf(const ProgramPaths& paths);

// A list of the main window: its entries and which of them are ticked.
using TickList = std::vector<std::pair<std::string, bool>>;

// What the texture operations need from the program around them.
struct TextureServices {
    MessageService& messages;
    FileOperations& files;
    EventPump& events;
    Clock& clock;
    // The main window's status line (lblMsg); shows progress such as "Copying name".
    std::function<void(const std::string&)> showStatus = [](const std::string&) {};
    // How many bytes of a run of copies are done, of how many; done equals total at its end.
    std::function<void(std::uint64_t done, std::uint64_t total)> showProgress =
        [](std::uint64_t, std::uint64_t) {};
};

} // namespace vellumar
