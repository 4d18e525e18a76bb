#pragma once

#include "autorandom/PickRandomSet.h"
#include "common/widgets/WindowDrag.h"
#include "simulator/FsWatch.h"
#include "simulator/InstallAndStart.h"
#include "simulator/Splash.h"
#include "sound/SoundWindowDoors.h"
#include "textures/LastInstalled.h"
#include "ui/MainWindowLogic.h"

#include <QPoint>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QWidget>

#include <array>
#include <cstdint>
#include <functional>
#include <string>

class QAction;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QListView;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QProgressBar;
class QRadioButton;
class QTimer;
class QVBoxLayout;

namespace vellumar {

class ClickableLabel;
class frmRandSel;
class frmSound;
class HiddenPickPanel;
class PictureButton;
class PictureView;
class ReadoutLabel;
class SetListModel;
class SetsInPlaceReader;
struct ProgramState;
struct ScreenFacts;
struct Services;
struct TextureSetEntry;

// The main window: the texture library with its filters and file lists, the commands, the
// popup menus and the notification-area icon. A borderless panel the user drags by its body.
// Its handlers read the controls, ask core, and show the answer.
class Form1 final : public QWidget {
    Q_OBJECT

public:
    // The watch's "simulator closed" step, for tests that cannot wait a second.
    void RunSimulatorWatch() { tmrFsCheck2_Timer(); }
    const FsWatchState& simulatorWatch() const { return fsWatch_; }
    // One tick of the AutoRandom countdown, for tests that drive the clock themselves.
    void RunAutoRandomTick() { Timer1_Timer(); }

    // `state` holds the configuration that the start-up has loaded; `uniform` feeds the hidden
    // random pick (empty: a generator seeded from the services' clock).
    Form1(Services& services, ProgramState& state, const ScreenFacts& screen,
          std::function<double()> uniform = {}, QWidget* parent = nullptr);
    ~Form1() override;

    // The window's part of the start-up, once the configuration is loaded: help, situations,
    // the list layout, the font, the AutoRandom display and the first selection.
    void Form_Load();

    const MainWindowState& mainWindowState() const { return windowState_; }

    // What the sound window plays through; tests hand in fakes.
    std::function<SoundWindowDoors()> soundWindowDoors;
    // The sound window while it is open.
    frmSound* soundWindow() const;

    // Add Texture Set: asks for the archive or folder to add; "" when the user cancels. Tests
    // hand in the answer.
    std::function<std::string()> chooseTextureSetSource;

    // The marks of the sets wholly in place are being worked out; tests wait for the answer.
    bool SetsInPlaceBeingRead() const;

Q_SIGNALS:
    // Form_Unload has run: the program ends.
    void unloaded();
    // Reloading the configuration failed and the user has been told: the program ends.
    void programEnded();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // An archive or a folder dropped on the window is added to the library as a set.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void CreateControls();
    void CreateMenus();
    void Connect();
    void ShowConfiguration();
    void FitWindowToContents();

    // Handlers.
    void LstSky_Click(int row);
    void lstSkyFil_Click(int row);
    void cmbClouds_Click(int index);
    void cmbOption_Click(int index);
    void lstClouds_Click(QListWidgetItem* item);
    void lstOption_Click(QListWidgetItem* item);
    void chkTrailOption_Click(bool checked);
    void lblFilter_Click(int index);
    void optSky_Click();
    void optFLT_Click();
    void optFs_Click(int index);
    void lstFLT_Click();
    void mnuClearSituation_Click();
    void cmdInstAndStart_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                                   const QPoint& globalPosition);
    void cmdInstAndStart_Click();
    void mnuNotStartFs_Click();
    void mnuCancel_Click();
    void tmrFsCheck2_Timer();
    void lblAutoRandom_Click();
    void lblTime_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void Timer1_Timer();
    void cmdRandom_Click();
    void cmdInst_Click();
    void cmdBackUp_Click();
    void mnuBkAll_Click();
    void cmdToOrg_Click();
    void mnuLastInst_Click();
    void mnuRestoreOriginals_Click();
    void cmdMin_Click();
    void cmdClose_Click();
    void lblHelp_Click();
    void lblOption_Click();
    void mnuCheckAll(QListWidget* list, bool ticked);
    void mnuShowIni_Click();
    void mnuSound_Click();
    void mnuEndProg_Click();
    void mnuAddTextureSet_Click();
    void AddTextureSetFrom(const std::string& source);
    // Loads cloud.ini again after the library changed, and shows it.
    void ReloadConfiguration();
    void PIC_Activated(QSystemTrayIcon::ActivationReason reason);

    // Shared routines.
    void SysTrayIcon(bool add);
    void ButtonCtrl(bool enabled);
    void cmdCont();
    void AutoRandomOff();
    void ShowTrailSwitch();
    void ShowFilterColours(int chosen);
    void ShowStatus(const std::string& text);
    // Where AutoRandom goes off (at load, and when it is switched off), as the status rule says.
    void ShowStatusWithAutoRandomOff();
    void ShowToolTips();
    // The controls built only once they are first needed.
    QListView* FilteredList();
    // lstSkyFil follows the filter state (once it exists).
    void ShowFilteredSets();
    HiddenPickPanel* HiddenPick();
    // The set of cmbClouds in the status line, unless a hidden pick keeps its name back.
    void ShowChosenSet();
    void ShowCopyProgress(std::uint64_t done, std::uint64_t total);
    // The situation files of the situation folder in lstFLT; why there are none otherwise.
    void FillSituationList();
    // Installs cmbClouds' set with its ticked files: cmdInst's work, shared with Install & Start.
    bool InstallChosenSet();
    // Reads again, in the background, which sets are wholly in place, for the lists' marks.
    void RefreshSetsInPlace();
    bool InstallChosenSituation();
    // Plays the configured button sound; false when there is none to play.
    bool ButtonSound();
    std::string SimulatorExecutable() const;
    // The services of an install, backup or restore, reporting to this window.
    TextureServices Textures();
    void Apply(const WindowChanges& changes);
    void PopUp(QMenu* menu, const QPoint& globalPosition);

    const std::vector<TextureSetEntry>& Sets() const;
    std::string CurrentOptionSetFolder() const;

    Services& services_;
    ProgramState& state_;
    const ScreenFacts& screen_;
    MainWindowState windowState_;
    RandomSetPicker picker_;
    LastInstalledRecord record_;
    SplashState splash_;
    std::function<double()> splashDraw_;
    FsWatchState fsWatch_;
    StartFlags startFlags_;
    // The place in AutoRandom's order of the set installed last, and how that install went.
    int OrderPosition_ = 0;
    bool LastInstallOk_ = true;
    std::string situationProblem_;
    // The drag origin: where the mouse went down, relative to the window.
    WindowDrag drag_;

    QLabel* lblAppName_ = nullptr;
    QRadioButton* optSky_ = nullptr;
    QRadioButton* optFLT_ = nullptr;
    std::array<QRadioButton*, 2> optFs_{};
    // lstSky and cmbClouds show allSets_; lstSkyFil, built on the first filter, filteredSets_.
    SetListModel* allSets_ = nullptr;
    SetListModel* filteredSets_ = nullptr;
    SetsInPlaceReader* setsInPlace_ = nullptr;
    QListView* lstSky_ = nullptr;
    QListView* lstSkyFil_ = nullptr;
    HiddenPickPanel* picHiddenPick_ = nullptr;
    QComboBox* cmbClouds_ = nullptr;
    QListWidget* lstClouds_ = nullptr;
    QComboBox* cmbOption_ = nullptr;
    QListWidget* lstOption_ = nullptr;
    QCheckBox* chkTrailOption_ = nullptr;
    QLabel* lblTrailOption_ = nullptr;
    QListWidget* lstFLT_ = nullptr;
    std::array<ClickableLabel*, SetFilter::Count> lblFilter_{};
    ClickableLabel* lblOption_ = nullptr;
    ClickableLabel* lblAutoRandom_ = nullptr;
    ReadoutLabel* lblTime_ = nullptr;
    ReadoutLabel* lblMsg_ = nullptr;
    QProgressBar* prgCopy_ = nullptr;
    QLabel* lblFunc_ = nullptr;
    ClickableLabel* lblHelp_ = nullptr;
    PictureView* ImgSky_ = nullptr;
    PictureButton* cmdInst_ = nullptr;
    PictureButton* cmdInstAndStart_ = nullptr;
    PictureButton* cmdRandom_ = nullptr;
    PictureButton* cmdBackUp_ = nullptr;
    PictureButton* cmdToOrg_ = nullptr;
    PictureButton* cmdClose_ = nullptr;
    PictureButton* cmdMin_ = nullptr;
    QWidget* listArea_ = nullptr;
    QVBoxLayout* listAreaLayout_ = nullptr;
    QWidget* filePanel_ = nullptr;
    QSystemTrayIcon* PIC_ = nullptr;
    QTimer* Timer1_ = nullptr;
    QTimer* tmrFsCheck2_ = nullptr;

    QMenu* mnuPopUpClearSituaion_ = nullptr;
    QMenu* mnuPopUpStartMode_ = nullptr;
    QMenu* mnuPopUpCloud_ = nullptr;
    QMenu* mnuPopUpOption_ = nullptr;
    QMenu* mnuPopUpBkAll_ = nullptr;
    QMenu* mnuPopUpTaskTray_ = nullptr;
    QMenu* mnuPopUpForm_ = nullptr;
    QPointer<frmRandSel> selectionWindow_;
    QPointer<frmSound> soundWindow_;
};

} // namespace vellumar
