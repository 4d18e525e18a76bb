#pragma once

#include "sound/CD.h"
#include "sound/CdPanel.h"

#include <QDialog>

#include <memory>

class QCheckBox;
class QLabel;
class QScrollBar;
class QTimer;

namespace vellumar {

class MediaControl;
struct ProgramState;
struct Services;

// "Vellumar Sound": music beside the flight. An audio CD (a disc in the drive, or a disc image)
// with track choice and repeat, and the sound channels of the user's own files.
class frmSound final : public QDialog {
    Q_OBJECT

public:
    frmSound(Services& services, ProgramState& state, std::unique_ptr<MediaControl> cd,
             QWidget* parent = nullptr);
    ~frmSound() override;

    // One status poll of the CD, for tests that cannot wait a second.
    void RunCdPoll() { tmrCD_Timer(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void Form_Unload();
    void tmrCD_Timer();
    void chkCD_Click();
    void hsvTrack_Change(int track);
    void ShowCdControls();

    Services& services_;
    ProgramState& state_;
    std::unique_ptr<MediaControl> control_;
    CD cd_;
    CdPanel cdPanel_;
    bool unloaded_ = false;

    QCheckBox* chkCD_ = nullptr;
    QCheckBox* chkRepeatCD_ = nullptr;
    QScrollBar* hsvTrack_ = nullptr;
    QLabel* lblTrack_ = nullptr;
    QLabel* lblCdStatus_ = nullptr;
    QTimer* tmrCD_ = nullptr;
};

} // namespace vellumar
