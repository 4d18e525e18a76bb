#pragma once

#include "sound/CD.h"
#include "sound/CdPanel.h"
#include "sound/MusicChannel.h"
#include "sound/SoundChannel.h"
#include "sound/SoundWindowDoors.h"
#include "ui/frmMusic.h"

#include <QDialog>
#include <QPointer>

#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QLabel;
class QPushButton;
class QScrollBar;
class QSlider;
class QSpinBox;
class QTimer;

namespace vellumar {

struct ProgramState;
struct Services;

// "Vellumar Sound": music beside the flight. An audio CD (a disc in the drive, or a disc
// image) with track choice and repeat; two channels that play the sound files of a folder in
// random order with a pause between pieces; and the music list. Closing it stops the CD and
// keeps the volumes, pauses and music list in cloud.ini.
class frmSound final : public QDialog {
    Q_OBJECT

public:
    frmSound(Services& services, ProgramState& state, SoundWindowDoors doors,
             QWidget* parent = nullptr);
    ~frmSound() override;

    // One status poll of the CD and one tick of the channels, for tests that cannot wait.
    void RunCdPoll() { tmrCD_Timer(); }
    void RunChannelTick() { tmrChannels_Timer(); }

    // The file choice of the music window's Add; tests hand in their own.
    frmMusic::FileChooser chooseMusicFiles;
    // The music window while it is open.
    frmMusic* musicWindow() const { return musicWindow_; }
    // Closes the music window, as the main window's unload does before it closes this one.
    void CloseMusicOrder();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct ChannelControls {
        QPushButton* play = nullptr;
        QPushButton* stop = nullptr;
        QSlider* volume = nullptr;
        QSpinBox* interval = nullptr; // channels 1 and 2
        QLabel* status = nullptr;
    };

    void Form_Load();
    void Form_Unload();
    void tmrCD_Timer();
    void chkCD_Click();
    void hsvTrack_Change(int track);
    void ShowCdControls();
    void tmrChannels_Timer();
    void ShowChannels();
    void cmdMusicOrder_Click();
    void SaveSettings();

    Services& services_;
    ProgramState& state_;
    SoundWindowDoors doors_;
    CD cd_;
    CdPanel cdPanel_;
    std::array<SoundChannel, 2> channels_;
    MusicChannel music_;
    bool unloaded_ = false;

    QCheckBox* chkCD_ = nullptr;
    QCheckBox* chkRepeatCD_ = nullptr;
    QScrollBar* hsvTrack_ = nullptr;
    QLabel* lblTrack_ = nullptr;
    QLabel* lblCdStatus_ = nullptr;
    QTimer* tmrCD_ = nullptr;
    std::array<ChannelControls, 3> channelControls_;
    QPushButton* cmdPrevious_ = nullptr;
    QPushButton* cmdNext_ = nullptr;
    QPushButton* cmdMusicOrder_ = nullptr;
    QTimer* tmrChannels_ = nullptr;
    QPointer<frmMusic> musicWindow_;
};

} // namespace vellumar
