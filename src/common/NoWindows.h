#pragma once

#include "common/EventPump.h"
#include "common/FolderBrowser.h"
#include "common/WavePlayer.h"

#include <iostream>

namespace vellumar {

// Without windows there are no window events to let through.
class NoWindowsEventPump final : public EventPump {
public:
    void DoEvents() override {}
};

// Without windows there is nobody to choose a folder: the question counts as cancelled.
class NoWindowsFolderBrowser final : public FolderBrowser {
public:
    std::string BrowseForFolder(const std::string& prompt, int, const std::string&) override
    {
        std::cerr << prompt << "\n(no folder can be chosen without windows)\n";
        return {};
    }
};

// A terminal plays no sounds: a script's run is quiet.
class NoWindowsWavePlayer final : public WavePlayer {
public:
    void playAsync(const std::string&) override {}
    void beep() override {}
};

} // namespace vellumar
