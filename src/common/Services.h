#pragma once

namespace vellumar {

class Clock;
class MessageService;
class EventPump;
class FileOperations;
class Registry;
class SystemFolders;
class ProcessLauncher;
class SimulatorProcess;
class FolderBrowser;
class WavePlayer;
class OriginalsGuard;

// Every door from core to the world, handed in by the program, the command-line tool or a test.
struct Services {
    MessageService& messages;
    EventPump& events;
    FileOperations& files;
    Registry& registry;
    SystemFolders& systemFolders;
    ProcessLauncher& launcher;
    SimulatorProcess& simulator;
    FolderBrowser& folderBrowser;
    WavePlayer& sounds;
    Clock& clock;
    // The same file operations as `files`, as the keeper of the simulator's originals.
    OriginalsGuard& originals;
};

} // namespace vellumar
