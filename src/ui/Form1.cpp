#include "ui/Form1.h"

#include "app/CloudIni.h"
#include "app/DataFolderChecks.h"
#include "app/FsDiscovery.h"
#include "app/ProgramSounds.h"
#include "app/StartUpSequence.h"
#include "app/TextureSetLibrary.h"
#include "autorandom/AutoRandomTimer.h"
#include "common/ApplyProportionalFont_qt.h"
#include "common/Clock.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/OriginalsGuard.h"
#include "common/PathText.h"
#include "common/ProcessLauncher.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/WavePlayer.h"
#include "common/widgets/ArrowComboBox.h"
#include "common/widgets/ClickableLabel.h"
#include "common/widgets/HiddenPickPanel.h"
#include "common/widgets/PictureButton.h"
#include "common/widgets/PictureView.h"
#include "common/widgets/Skin.h"
#include "common/widgets/SkyBand.h"
#include "common/widgets/TickBox.h"
#include "simulator/Situation.h"
#include "sound/ProgramSoundDoors.h"
#include "textures/Backup.h"
#include "textures/Install.h"
#include "textures/Restore.h"
#include "textures/SetCatalogue.h"
#include "textures/SimulatorOriginals.h"
#include "ui/InPlaceMarkDelegate_qt.h"
#include "ui/SetListModel_qt.h"
#include "ui/SetsInPlaceReader_qt.h"
#include "ui/frmRandSel.h"
#include "ui/frmSound.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <map>

namespace vellumar {

namespace {

constexpr int kTwipsPerPixel = 15;
// The set area: one list of sets, or the file lists of a set and an option set side by side.
constexpr int kSetListWidth = 286;
constexpr int kFileListWidth = 204;
constexpr int kSetAreaHeight = 262;

QString Text(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

template <typename Widget>
Widget* Named(Widget* widget, const char* name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QAction* AddItem(QMenu* menu, const char* name, const char* caption)
{
    QAction* action = menu->addAction(QString::fromUtf8(caption));
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

QMenu* NewMenu(QWidget* owner, const char* name)
{
    auto* menu = new QMenu(owner);
    menu->setObjectName(QString::fromLatin1(name));
    return menu;
}

QListWidget* NewList(const char* name)
{
    auto* list = Named(new QListWidget, name);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setUniformItemSizes(true);
    return list;
}

QListView* NewSetList(const char* name, SetListModel* sets)
{
    auto* list = Named(new QListView, name);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setModel(sets);
    list->setItemDelegate(new InPlaceMarkDelegate(list));
    return list;
}

int RowCount(const QListView* list)
{
    return list->model()->rowCount();
}

// Selects a row of a set list without running its click handler.
void SelectRowQuietly(QListView* list, int row)
{
    const QSignalBlocker quiet(list->selectionModel());
    list->setCurrentIndex(list->model()->index(row, 0));
}

TickList ReadTicks(const QListWidget* list)
{
    TickList ticks;
    ticks.reserve(static_cast<std::size_t>(list->count()));
    for (int row = 0; row < list->count(); ++row) {
        const QListWidgetItem* item = list->item(row);
        ticks.emplace_back(item->text().toStdString(), item->checkState() == Qt::Checked);
    }
    return ticks;
}

void WriteTicks(QListWidget* list, const TickList& ticks)
{
    const QSignalBlocker quiet(list);
    for (int row = 0; row < list->count() && static_cast<std::size_t>(row) < ticks.size(); ++row)
        list->item(row)->setCheckState(ticks[static_cast<std::size_t>(row)].second ? Qt::Checked
                                                                                   : Qt::Unchecked);
}

void FillTicks(QListWidget* list, const TextList& names, bool ticked)
{
    const QSignalBlocker quiet(list);
    list->clear();
    for (const std::string& name : names) {
        auto* item = new QListWidgetItem(QString::fromStdString(name), list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
    }
}

// The text colour of an enabled control; a disabled one keeps the panel's grey.
void SetInk(QWidget* widget, const QColor& ink)
{
    QPalette colours = widget->palette();
    colours.setColor(QPalette::Active, QPalette::WindowText, ink);
    colours.setColor(QPalette::Inactive, QPalette::WindowText, ink);
    widget->setPalette(colours);
}

} // namespace

Form1::Form1(Services& services, ProgramState& state, const ScreenFacts& screen,
             std::function<double()> uniform, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint)
    , services_(services)
    , state_(state)
    , screen_(screen)
    , picker_(uniform ? std::move(uniform) : ClockSeededUniform(services.clock))
    , splashDraw_(ClockSeededUniform(services.clock))
{
    setObjectName(QStringLiteral("Form1"));
    setWindowIcon(skin::AppIcon());
    setAutoFillBackground(false);
    CreateControls();
    CreateMenus();
    Connect();
    setAcceptDrops(true);
    setsInPlace_ = new SetsInPlaceReader(
        &CreatePlatformFileOperations,
        [this](const TextList& folders) {
            allSets_->markSetsInPlace(folders);
            filteredSets_->markSetsInPlace(folders);
        },
        this);
    // The look comes last: given first, every control added to the tree would be polished
    // again as it moves into place, which is a good part of the window's start-up.
    setPalette(skin::PanelPalette());
    setStyleSheet(skin::PanelStyleSheet());
}

Form1::~Form1() = default;

void Form1::CreateControls()
{
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(1, 1, 1, 1);
    root->setSpacing(0);

    // The sky band: the program's name, and the keys that hide and close the window.
    auto* band = Named(new SkyBand, "SkyBand");
    band->setFixedHeight(46);
    auto* bandRow = new QHBoxLayout(band);
    bandRow->setContentsMargins(12, 0, 9, 2);
    bandRow->setSpacing(8);
    auto* icon = new QLabel;
    icon->setFixedSize(26, 26);
    icon->setPixmap(skin::AppIcon().pixmap(QSize(26, 26), devicePixelRatioF()));
    lblAppName_ = Named(new QLabel, "lblAppName");
    QFont titleFont = lblAppName_->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.25);
    titleFont.setBold(true);
    lblAppName_->setFont(titleFont);
    SetInk(lblAppName_, Qt::white);
    cmdMin_ =
        Named(new PictureButton(PictureButton::Glyph::Minimise, {}, PictureButton::Kind::TitleBar),
              "cmdMin");
    cmdClose_ =
        Named(new PictureButton(PictureButton::Glyph::Close, {}, PictureButton::Kind::TitleBar),
              "cmdClose");
    bandRow->addWidget(icon);
    bandRow->addWidget(lblAppName_);
    bandRow->addStretch();
    bandRow->addWidget(cmdMin_);
    bandRow->addWidget(cmdClose_);
    root->addWidget(band);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(14, 10, 14, 12);
    body->setSpacing(8);
    root->addLayout(body);

    // Mode and simulator choices.
    auto* modeRow = new QHBoxLayout;
    modeRow->setSpacing(14);
    optSky_ = Named(new QRadioButton(QStringLiteral("Sky")), "optSky");
    optFLT_ = Named(new QRadioButton(QStringLiteral("Situation")), "optFLT");
    optSky_->setChecked(true);
    auto* modeGroup = new QWidget;
    auto* modeLayout = new QHBoxLayout(modeGroup);
    modeLayout->setContentsMargins(0, 0, 0, 0);
    modeLayout->setSpacing(14);
    modeLayout->addWidget(optSky_);
    modeLayout->addWidget(optFLT_);
    optFs_[0] = Named(new QRadioButton(QStringLiteral("FS2K")), "optFs0");
    optFs_[1] = Named(new QRadioButton(QStringLiteral("CFS2")), "optFs1");
    // Two groups of radio buttons: each pair excludes within itself only.
    auto* fsGroup = new QWidget;
    auto* fsLayout = new QHBoxLayout(fsGroup);
    fsLayout->setContentsMargins(0, 0, 0, 0);
    fsLayout->setSpacing(14);
    fsLayout->addWidget(optFs_[0]);
    fsLayout->addWidget(optFs_[1]);
    modeRow->addWidget(modeGroup);
    modeRow->addStretch();
    modeRow->addWidget(fsGroup);
    body->addLayout(modeRow);

    // The set filters under their heading.
    auto* filterRow = new QHBoxLayout;
    filterRow->setSpacing(16);
    for (int index = 0; index < SetFilter::Count; ++index) {
        lblFilter_[static_cast<std::size_t>(index)] =
            Named(new ClickableLabel(Text(FilterCaption(index))), FilterLabelName(index).c_str());
    }
    ClickableLabel* heading = lblFilter_[SetFilter::Heading];
    heading->setInteractive(false);
    QFont headingFont = heading->font();
    headingFont.setBold(true);
    heading->setFont(headingFont);
    lblFunc_ = Named(new QLabel, "lblFunc");
    lblFunc_->setFont(headingFont);
    lblFunc_->hide();
    filterRow->addWidget(heading);
    filterRow->addWidget(lblFunc_);
    filterRow->addSpacing(4);
    for (int index : {SetFilter::All, SetFilter::Cumulus, SetFilter::Cirrus, SetFilter::SkyColor,
                      SetFilter::Misc})
        filterRow->addWidget(lblFilter_[static_cast<std::size_t>(index)]);
    filterRow->addStretch();
    body->addLayout(filterRow);

    // The set area and, beside it, the preview with the commands.
    auto* mainRow = new QHBoxLayout;
    mainRow->setSpacing(14);
    listArea_ = Named(new QWidget, "SetArea");
    auto* area = new QVBoxLayout(listArea_);
    area->setContentsMargins(0, 0, 0, 0);
    area->setSpacing(6);
    listAreaLayout_ = area;
    allSets_ = new SetListModel(this);
    filteredSets_ = new SetListModel(this);
    lstSky_ = NewSetList("lstSky", allSets_);
    lstFLT_ = NewList("lstFLT");
    // The file lists of the set and of the option set, each under its combo.
    filePanel_ = new QWidget;
    auto* files = new QGridLayout(filePanel_);
    files->setContentsMargins(0, 0, 0, 0);
    files->setHorizontalSpacing(10);
    files->setVerticalSpacing(6);
    cmbClouds_ = Named(new ArrowComboBox, "cmbClouds");
    cmbClouds_->setModel(allSets_);
    cmbOption_ = Named(new ArrowComboBox, "cmbOption");
    lstClouds_ = NewList("lstClouds");
    lstOption_ = NewList("lstOption");
    for (QComboBox* combo : {cmbClouds_, cmbOption_}) {
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(8);
    }
    for (QListWidget* list : {lstClouds_, lstOption_}) {
        list->setContextMenuPolicy(Qt::CustomContextMenu);
        list->setItemDelegate(new TickDelegate(list));
    }
    files->addWidget(cmbClouds_, 0, 0);
    files->addWidget(cmbOption_, 0, 1);
    files->addWidget(lstClouds_, 1, 0);
    files->addWidget(lstOption_, 1, 1);
    area->addWidget(filePanel_, 1);
    area->addWidget(lstSky_, 1);
    area->addWidget(lstFLT_, 1);
    lstFLT_->hide();
    auto* trailRow = new QHBoxLayout;
    trailRow->setSpacing(6);
    chkTrailOption_ = Named(new TickCheckBox, "chkTrailOption");
    lblTrailOption_ = Named(new QLabel, "lblTrailOption");
    SetInk(lblTrailOption_, skin::PanelTextDim());
    trailRow->addWidget(chkTrailOption_);
    trailRow->addWidget(lblTrailOption_, 1);
    area->addLayout(trailRow);
    mainRow->addWidget(listArea_, 1);

    auto* side = new QVBoxLayout;
    side->setSpacing(8);
    ImgSky_ = Named(new PictureView, "ImgSky");
    ImgSky_->setFixedSize(ImgSky_->sizeHint());
    side->addWidget(ImgSky_);
    auto* keys = new QGridLayout;
    keys->setHorizontalSpacing(8);
    keys->setVerticalSpacing(8);
    using Glyph = PictureButton::Glyph;
    cmdInst_ = Named(new PictureButton(Glyph::Install, QStringLiteral("Install")), "cmdInst");
    cmdRandom_ = Named(new PictureButton(Glyph::Random, QStringLiteral("Random")), "cmdRandom");
    cmdInstAndStart_ =
        Named(new PictureButton(Glyph::InstallAndStart, QStringLiteral("Install && Start"),
                                PictureButton::Kind::Primary),
              "cmdInstAndStart");
    cmdBackUp_ = Named(new PictureButton(Glyph::Backup, QStringLiteral("Backup")), "cmdBackUp");
    cmdToOrg_ = Named(new PictureButton(Glyph::Restore, QStringLiteral("Restore")), "cmdToOrg");
    keys->addWidget(cmdInst_, 0, 0);
    keys->addWidget(cmdRandom_, 0, 1);
    keys->addWidget(cmdInstAndStart_, 1, 0, 1, 2);
    keys->addWidget(cmdBackUp_, 2, 0);
    keys->addWidget(cmdToOrg_, 2, 1);
    side->addLayout(keys);
    side->addStretch();
    mainRow->addLayout(side);
    body->addLayout(mainRow, 1);

    // The instrument strip: the status readout, then AutoRandom, the menu and help.
    lblMsg_ = Named(new ReadoutLabel(skin::ReadoutAmber()), "lblMsg");
    lblMsg_->setMinimumHeight(30);
    lblMsg_->setTextFormat(Qt::PlainText);
    // The text stands a little high, leaving the lower edge to the copy progress.
    lblMsg_->setContentsMargins(10, 2, 10, 6);
    // A long copy fills a thin bar along the readout's lower edge, under the file's name.
    prgCopy_ = Named(new QProgressBar, "prgCopy");
    prgCopy_->setRange(0, 1000);
    prgCopy_->setTextVisible(false);
    prgCopy_->setFixedHeight(3);
    prgCopy_->hide();
    lblMsg_->setLowerEdgeBar(prgCopy_);
    body->addSpacing(2);
    body->addWidget(lblMsg_);
    auto* bottomRow = new QHBoxLayout;
    bottomRow->setSpacing(10);
    lblAutoRandom_ = Named(new ClickableLabel(QStringLiteral("Auto Install")), "lblAutoRandom");
    lblTime_ = Named(new ReadoutLabel(skin::ReadoutGreen()), "lblTime");
    lblTime_->setAlignment(Qt::AlignCenter);
    lblTime_->setMinimumWidth(70);
    lblTime_->setMinimumHeight(24);
    lblTime_->setInteractive(true);
    lblOption_ = Named(new ClickableLabel(QStringLiteral("Option")), "lblOption");
    lblHelp_ = Named(new ClickableLabel(QStringLiteral("Help")), "lblHelp");
    for (ClickableLabel* label : {lblOption_, lblHelp_, lblAutoRandom_})
        SetInk(label, skin::FilterColour());
    bottomRow->addWidget(lblAutoRandom_);
    bottomRow->addWidget(lblTime_);
    bottomRow->addStretch();
    bottomRow->addWidget(lblOption_);
    bottomRow->addSpacing(8);
    bottomRow->addWidget(lblHelp_);
    body->addLayout(bottomRow);

    PIC_ = new QSystemTrayIcon(this);
    PIC_->setObjectName(QStringLiteral("PIC"));
    Timer1_ = Named(new QTimer(this), "Timer1");
    Timer1_->setInterval(200);
    tmrFsCheck2_ = Named(new QTimer(this), "tmrFsCheck2");
    tmrFsCheck2_->setInterval(1000);

    for (const char* name :
         {"cmdInst", "cmdInstAndStart", "cmdBackUp", "cmdToOrg", "lblAutoRandom", "lblTime"})
        findChild<QWidget*>(QString::fromLatin1(name))->setEnabled(false);
    ShowFilterColours(SetFilter::All);
}

void Form1::CreateMenus()
{
    mnuPopUpClearSituaion_ = NewMenu(this, "mnuPopUpClearSituaion");
    connect(AddItem(mnuPopUpClearSituaion_, "mnuClearSituation2", "Clear Situation"),
            &QAction::triggered, this, &Form1::mnuClearSituation_Click);

    mnuPopUpStartMode_ = NewMenu(this, "mnuPopUpStartMode");
    connect(
        AddItem(mnuPopUpStartMode_, "mnuNotStartFs", "Activate Auto Install Without Starting Fs"),
        &QAction::triggered, this, &Form1::mnuNotStartFs_Click);
    connect(AddItem(mnuPopUpStartMode_, "mnuCancel", "Cancel"), &QAction::triggered, this,
            &Form1::mnuCancel_Click);

    mnuPopUpCloud_ = NewMenu(this, "mnuPopUpCloud");
    connect(AddItem(mnuPopUpCloud_, "mnuClearCloudAll", "Clear Check All"), &QAction::triggered,
            this, [this] { mnuCheckAll(lstClouds_, false); });
    connect(AddItem(mnuPopUpCloud_, "mnuCheckCloudAll", "Check All"), &QAction::triggered, this,
            [this] { mnuCheckAll(lstClouds_, true); });

    mnuPopUpOption_ = NewMenu(this, "mnuPopUpOption");
    connect(AddItem(mnuPopUpOption_, "mnuClearOptionAll", "Clear Check All"), &QAction::triggered,
            this, [this] { mnuCheckAll(lstOption_, false); });
    connect(AddItem(mnuPopUpOption_, "mnuCheckOptionAll", "Check All"), &QAction::triggered, this,
            [this] { mnuCheckAll(lstOption_, true); });

    mnuPopUpBkAll_ = NewMenu(this, "mnuPopUpBkAll");
    connect(AddItem(mnuPopUpBkAll_, "mnuBkAll", "Re-backup all set again"), &QAction::triggered,
            this, &Form1::mnuBkAll_Click);

    mnuPopUpTaskTray_ = NewMenu(this, "mnuPopUpTaskTray");
    connect(AddItem(mnuPopUpTaskTray_, "mnuEndProg", "Close Vellumar"), &QAction::triggered, this,
            &Form1::mnuEndProg_Click);

    mnuPopUpForm_ = NewMenu(this, "mnuPopUpForm");
    const struct {
        const char* name;
        const char* caption;
    } formItems[] = {{"mnuTime", "Stop FS Time"},
                     {"mnuClearSituation", "Clear Situation"},
                     {"mnuShowIni", "Show cloud.ini"},
                     {"mnuSound", "Sound"},
                     {"mnuWeather", "Weather Setting"},
                     {"mnuLastInst", "Last Installed Data"},
                     {"mnuRestoreOriginals", "Restore Simulator Originals…"},
                     {"mnuAddTextureSet", "Add Texture Set…"},
                     {"mnuStopRefresh", "Stop Refresh"},
                     {"mnuHelp", "Help"}};
    bool first = true;
    for (const auto& item : formItems) {
        if (!first)
            mnuPopUpForm_->addSeparator();
        first = false;
        QAction* action = AddItem(mnuPopUpForm_, item.name, item.caption);
        const std::string_view name = item.name;
        // These items never had an action; a menu entry that does nothing only misleads.
        if (name == "mnuTime" || name == "mnuWeather" || name == "mnuStopRefresh" ||
            name == "mnuHelp")
            action->setVisible(false);
        if (name == "mnuShowIni")
            connect(action, &QAction::triggered, this, &Form1::mnuShowIni_Click);
        if (name == "mnuSound")
            connect(action, &QAction::triggered, this, &Form1::mnuSound_Click);
        if (name == "mnuLastInst")
            connect(action, &QAction::triggered, this, &Form1::mnuLastInst_Click);
        if (name == "mnuRestoreOriginals")
            connect(action, &QAction::triggered, this, &Form1::mnuRestoreOriginals_Click);
        if (name == "mnuClearSituation")
            connect(action, &QAction::triggered, this, &Form1::mnuClearSituation_Click);
        if (name == "mnuAddTextureSet")
            connect(action, &QAction::triggered, this, &Form1::mnuAddTextureSet_Click);
    }

    PIC_->setContextMenu(mnuPopUpTaskTray_);
}

void Form1::Connect()
{
    connect(cmdClose_, &QAbstractButton::clicked, this, &Form1::cmdClose_Click);
    connect(cmdMin_, &QAbstractButton::clicked, this, &Form1::cmdMin_Click);
    connect(cmdRandom_, &QAbstractButton::clicked, this, &Form1::cmdRandom_Click);
    connect(cmdInst_, &QAbstractButton::clicked, this, &Form1::cmdInst_Click);
    connect(cmdInstAndStart_, &PictureButton::mouseDown, this, &Form1::cmdInstAndStart_MouseDown);
    connect(cmdInstAndStart_, &QAbstractButton::clicked, this, &Form1::cmdInstAndStart_Click);
    connect(lstFLT_, &QListWidget::currentRowChanged, this, [this] { lstFLT_Click(); });
    connect(lstFLT_, &QListWidget::itemClicked, this, [this] { lstFLT_Click(); });
    connect(tmrFsCheck2_, &QTimer::timeout, this, &Form1::tmrFsCheck2_Timer);
    connect(cmdBackUp_, &QAbstractButton::clicked, this, &Form1::cmdBackUp_Click);
    connect(cmdToOrg_, &QAbstractButton::clicked, this, &Form1::cmdToOrg_Click);
    connect(cmdBackUp_, &PictureButton::rightPressed, this,
            [this](const QPoint& at) { PopUp(mnuPopUpBkAll_, at); });

    connect(optSky_, &QRadioButton::clicked, this, &Form1::optSky_Click);
    connect(optFLT_, &QRadioButton::clicked, this, &Form1::optFLT_Click);
    optFLT_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(optFLT_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { PopUp(mnuPopUpClearSituaion_, optFLT_->mapToGlobal(at)); });
    for (int index = 0; index < 2; ++index)
        connect(optFs_[static_cast<std::size_t>(index)], &QRadioButton::clicked, this,
                [this, index] { optFs_Click(index); });

    connect(lstSky_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { LstSky_Click(current.row()); });
    connect(cmbClouds_, &QComboBox::activated, this, &Form1::cmbClouds_Click);
    connect(cmbOption_, &QComboBox::activated, this, &Form1::cmbOption_Click);
    connect(lstClouds_, &QListWidget::itemChanged, this, &Form1::lstClouds_Click);
    connect(lstClouds_, &QListWidget::itemClicked, this, &Form1::lstClouds_Click);
    connect(lstOption_, &QListWidget::itemChanged, this, &Form1::lstOption_Click);
    connect(lstOption_, &QListWidget::itemClicked, this, &Form1::lstOption_Click);
    connect(lstClouds_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (lstClouds_->count() > 0)
            PopUp(mnuPopUpCloud_, lstClouds_->viewport()->mapToGlobal(at));
    });
    connect(lstOption_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (lstOption_->count() > 0)
            PopUp(mnuPopUpOption_, lstOption_->viewport()->mapToGlobal(at));
    });
    connect(chkTrailOption_, &QCheckBox::clicked, this, &Form1::chkTrailOption_Click);

    for (int index = 0; index < SetFilter::Count; ++index)
        connect(lblFilter_[static_cast<std::size_t>(index)], &ClickableLabel::clicked, this,
                [this, index] { lblFilter_Click(index); });
    connect(lblHelp_, &ClickableLabel::clicked, this, &Form1::lblHelp_Click);
    connect(lblAutoRandom_, &ClickableLabel::clicked, this, &Form1::lblAutoRandom_Click);
    connect(lblTime_, &ClickableLabel::pressed, this,
            [this](Qt::MouseButton button, Qt::KeyboardModifiers modifiers, const QPoint&) {
                lblTime_MouseDown(button, modifiers);
            });
    connect(Timer1_, &QTimer::timeout, this, &Form1::Timer1_Timer);
    connect(lblOption_, &ClickableLabel::clicked, this, &Form1::lblOption_Click);

    connect(PIC_, &QSystemTrayIcon::activated, this, &Form1::PIC_Activated);
}

const std::vector<TextureSetEntry>& Form1::Sets() const
{
    return state_.settings.Sets;
}

// ---------------------------------------------------------------------------------------------
// Start-up

void Form1::Form_Load()
{
    record_ = LastInstalledRecord(state_.settings.LastInstalled, state_.settings.NumberOfDisp);
    ShowConfiguration();

    // A missing help folder leaves nothing to open.
    lblHelp_->setEnabled(IsOK(FolderExists(services_.files, HelpFolder(state_.paths.ProgramPath))));

    // The splash pictures are counted (and the simulator's own kept) once; each Install & Start
    // rotates them.
    splash_ = SplashStateOf(state_.checks, state_.settings);
    CountSplashPictures(services_.files, state_.paths.FsPath, splash_);

    if (state_.settings.SituationEnabled)
        FillSituationList();
    else
        situationProblem_ =
            "Situations are switched off: see [Situation] in " + state_.paths.IniName + ".";
    windowState_.SituationCount = lstFLT_->count();

    ApplyProportionalFont(*this, state_.checks.ProportionalFont);

    // AutoRandom starts switched off: every load of the configuration sets the interval to 0.
    Timer1_->stop();
    lblTime_->setText(Text(IntervalText(windowState_.AutoRandomInterval)));
    ButtonCtrl(true);
    cmdCont();
    if (!state_.settings.SituationEnabled)
        optFLT_->setEnabled(false);
    ShowStatusWithAutoRandomOff();
    windowState_.AutoRandomInterval = 0;

    // AutoRandom can be set up once there is a set to install.
    lblAutoRandom_->setEnabled(!Sets().empty());
    lblTime_->setEnabled(!Sets().empty());

    // The watch follows the simulator from now on, once a second.
    tmrFsCheck2_->start();

    if (state_.settings.StartSel == "situation" && optFLT_->isEnabled()) {
        optFLT_->setChecked(true);
        optFLT_Click();
    } else if (!ButtonSound()) {
        services_.sounds.beep();
    }
    FitWindowToContents();
    // A borderless window gets no place from every window manager; it opens mid-screen.
    if (const QScreen* shownOn = screen())
        move(shownOn->availableGeometry().center() - rect().center());
}

void Form1::ShowConfiguration()
{
    const CloudIniSettings& settings = state_.settings;
    setWindowTitle(QString::fromStdString(settings.AppName));
    lblAppName_->setText(QString::fromStdString(settings.AppName));

    Apply(SimulatorChoices(state_.paths.FsPaths[0], state_.paths.FsPaths[1]));
    {
        const QSignalBlocker quiet(optFs_[static_cast<std::size_t>(state_.paths.FsIndex & 1)]);
        optFs_[static_cast<std::size_t>(state_.paths.FsIndex & 1)]->setChecked(true);
    }

    ShowToolTips();

    {
        const QSignalBlocker quietList(lstSky_->selectionModel());
        const QSignalBlocker quietCombo(cmbClouds_);
        allSets_->showSets(&settings.Sets);
    }
    RefreshSetsInPlace();

    windowState_.ShowSkyFiles = settings.ShowSkyFiles;
    windowState_.BackupOriginals = settings.BackupOriginals;
    const SkyListLayout layout = LayoutForShowSkyFiles(windowState_);
    Apply(layout.changes);
    ClearFilter(windowState_);
    ShowFilteredSets();
    ShowFilterColours(windowState_.ChosenFilter);
    lstFLT_->setMinimumHeight(layout.situationListTwips / kTwipsPerPixel);
    listArea_->setMinimumSize(windowState_.ShowSkyFiles ? 2 * kFileListWidth + 10 : kSetListWidth,
                              kSetAreaHeight);

    if (!settings.Sets.empty()) {
        cmbClouds_Click(0);
        LstSky_Click(0);
    } else {
        ShowTrailSwitch();
    }
}

void Form1::FitWindowToContents()
{
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    layout()->activate();
    setFixedSize(sizeHint());
}

// ---------------------------------------------------------------------------------------------
// Set choice

void Form1::LstSky_Click(int row)
{
    if (row < 0 || row >= RowCount(lstSky_))
        return;
    if (row != cmbClouds_->currentIndex())
        cmbClouds_Click(row);
    ShowTrailSwitch();
}

void Form1::lstSkyFil_Click(int row)
{
    const int set = FilteredSetAt(windowState_, row);
    if (set < 0)
        return;
    SelectRowQuietly(lstSky_, set);
    LstSky_Click(set);
}

void Form1::cmbClouds_Click(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= Sets().size())
        return;
    const TextureSetEntry& set = Sets()[static_cast<std::size_t>(index)];
    {
        const QSignalBlocker quietCombo(cmbClouds_);
        cmbClouds_->setCurrentIndex(index);
    }
    SelectRowQuietly(lstSky_, index);
    const SetFolderFiles files = ScanSetFolder(services_.files, services_.events, set.folder);
    FillTicks(lstClouds_, ListSetFiles(files), true);
    {
        const QSignalBlocker quiet(cmbOption_);
        cmbOption_->clear();
        for (const std::string& name :
             OptionSetNames(services_.files, services_.events, state_.paths.DataFolder))
            cmbOption_->addItem(QString::fromStdString(name));
        cmbOption_->setCurrentIndex(cmbOption_->count() > 0 ? 0 : -1);
    }
    FillTicks(lstOption_, {}, false);

    ImgSky_->clear();
    const std::string preview = PreviewPictureOf(files);
    if (!preview.empty() && ShowsSetPreview(windowState_))
        ImgSky_->ShowPicture(services_.files, JoinPath(set.folder, preview),
                             state_.settings.StretchMode);
    ShowStatus(SetStatusText(windowState_, set.name));
    cmdCont();
}

std::string Form1::CurrentOptionSetFolder() const
{
    if (cmbOption_->currentIndex() < 0)
        return {};
    return JoinPath(OptionGroupFolder(state_.paths.DataFolder),
                    cmbOption_->currentText().toStdString());
}

void Form1::cmbOption_Click(int index)
{
    if (index < 0)
        return;
    ShowStatus(cmbOption_->itemText(index).toStdString());
    const SetFolderFiles files =
        ScanSetFolder(services_.files, services_.events, CurrentOptionSetFolder());
    FillTicks(lstOption_, ListOptionFiles(files), false);
    cmdCont();
}

void Form1::ShowTrailSwitch()
{
    const std::string folder = CurrentOptionSetFolder();
    const bool hasFiles =
        !folder.empty() &&
        !ListOptionFiles(ScanSetFolder(services_.files, services_.events, folder)).empty();
    const TrailSwitch trail =
        TrailSwitchFor(windowState_, cmbOption_->currentText().toStdString(), hasFiles);
    chkTrailOption_->setChecked(false);
    lblTrailOption_->setText(QString::fromStdString(trail.caption));
    chkTrailOption_->setVisible(trail.visible);
    lblTrailOption_->setVisible(trail.visible);
}

void Form1::chkTrailOption_Click(bool checked)
{
    // With only the set list shown, the switch takes the option set's bitmaps along.
    if (lstOption_->count() == 0 && cmbOption_->currentIndex() >= 0) {
        const SetFolderFiles files =
            ScanSetFolder(services_.files, services_.events, CurrentOptionSetFolder());
        FillTicks(lstOption_, ListOptionFiles(files), false);
    }
    TickList options = ReadTicks(lstOption_);
    for (auto& entry : options)
        entry.second = checked;
    WriteTicks(lstOption_, options);
    TickList clouds = ReadTicks(lstClouds_);
    MirrorTicks(options, clouds);
    WriteTicks(lstClouds_, clouds);
    cmdCont();
}

void Form1::lstClouds_Click(QListWidgetItem* item)
{
    if (item && ShowsFileName(windowState_))
        ShowStatus(item->text().toStdString());
    TickList options = ReadTicks(lstOption_);
    MirrorTicks(ReadTicks(lstClouds_), options);
    WriteTicks(lstOption_, options);
    cmdCont();
}

void Form1::lstOption_Click(QListWidgetItem* item)
{
    if (item && ShowsFileName(windowState_))
        ShowStatus(item->text().toStdString());
    TickList clouds = ReadTicks(lstClouds_);
    MirrorTicks(ReadTicks(lstOption_), clouds);
    WriteTicks(lstClouds_, clouds);
    cmdCont();
}

void Form1::mnuCheckAll(QListWidget* list, bool ticked)
{
    TickList ticks = ReadTicks(list);
    for (auto& entry : ticks)
        entry.second = ticked;
    WriteTicks(list, ticks);
    if (list == lstClouds_)
        lstClouds_Click(nullptr);
    else
        lstOption_Click(nullptr);
}

// ---------------------------------------------------------------------------------------------
// Filters and modes

void Form1::lblFilter_Click(int index)
{
    const FilterChoice choice = ChooseFilter(index, windowState_, Sets());
    if (!choice.applies)
        return;
    if (choice.switchAutoRandomOff)
        AutoRandomOff();
    TakeFilter(windowState_, choice);
    ShowFilterColours(windowState_.ChosenFilter);
    ShowFilteredSets();
    if (windowState_.Filtered()) {
        SelectRowQuietly(lstSkyFil_, 0);
        lstSkyFil_Click(0);
    } else if (RowCount(lstSky_) > 0) {
        SelectRowQuietly(lstSky_, 0);
        LstSky_Click(0);
    }
    Apply(SetListControls(windowState_));
}

void Form1::ShowFilteredSets()
{
    if (!lstSkyFil_ && !windowState_.Filtered())
        return;
    QListView* filtered = FilteredList();
    const QSignalBlocker quiet(filtered->selectionModel());
    filteredSets_->showSets(&Sets(), &windowState_.FilteredSets);
}

QListView* Form1::FilteredList()
{
    if (!lstSkyFil_) {
        // Most sessions never choose a filter: the list is built the first time one is.
        lstSkyFil_ = NewSetList("lstSkyFil", filteredSets_);
        lstSkyFil_->hide();
        listAreaLayout_->insertWidget(listAreaLayout_->indexOf(lstSky_) + 1, lstSkyFil_, 1);
        connect(lstSkyFil_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this](const QModelIndex& current) { lstSkyFil_Click(current.row()); });
        lstSkyFil_->setEnabled(lstSky_->isEnabled());
        ShowToolTips();
    }
    return lstSkyFil_;
}

HiddenPickPanel* Form1::HiddenPick()
{
    if (!picHiddenPick_) {
        picHiddenPick_ = Named(new HiddenPickPanel, "picHiddenPick");
        picHiddenPick_->hide();
        listAreaLayout_->insertWidget(listAreaLayout_->indexOf(lstSky_), picHiddenPick_, 1);
    }
    return picHiddenPick_;
}

void Form1::ShowFilterColours(int chosen)
{
    for (int index = 0; index < SetFilter::Count; ++index)
        SetInk(lblFilter_[static_cast<std::size_t>(index)],
               index == chosen ? skin::FilterChosenColour() : skin::FilterColour());
}

void Form1::optSky_Click()
{
    windowState_.SituationMode = false;
    Apply(SkyModeControls(windowState_));
    ShowTrailSwitch();
    cmbClouds_Click(cmbClouds_->currentIndex());
}

void Form1::optFLT_Click()
{
    windowState_.HideSetName = false;
    windowState_.SituationMode = true;
    Apply(SituationModeControls());
    lblFunc_->setText(QStringLiteral("Situation"));
    ShowStatus({});
    if (lstFLT_->count() > 0 && lstFLT_->currentRow() < 0) {
        const QSignalBlocker quiet(lstFLT_);
        lstFLT_->setCurrentRow(0);
    }
    lstFLT_Click();
}

void Form1::FillSituationList()
{
    const QSignalBlocker quiet(lstFLT_);
    lstFLT_->clear();
    const std::string& folder = state_.checks.SituationFolder;
    for (const std::string& name : ListSituations(services_.files, services_.events, folder))
        lstFLT_->addItem(QString::fromStdString(name));
    situationProblem_ = CheckSituationFolder(services_.files, services_.events, folder);
    if (!situationProblem_.empty())
        situationProblem_ = "No situation to show: " + situationProblem_;
    ShowToolTips();
}

void Form1::lstFLT_Click()
{
    QListWidgetItem* item = lstFLT_->currentItem();
    if (!item)
        return;
    const SituationPreview preview = PreviewSituation(
        services_.files, state_.checks.SituationFolder, item->text().toStdString());
    if (preview.text) {
        ShowStatus(*preview.text);
        if (preview.fromTextFile)
            lstFLT_->setToolTip(QString::fromStdString(*preview.text));
    }
    ImgSky_->clear();
    if (!preview.picture.empty())
        ImgSky_->ShowPicture(services_.files, preview.picture, state_.settings.StretchMode);
}

void Form1::mnuClearSituation_Click()
{
    ClearSituation(services_.files, services_.messages, state_,
                   [this] { services_.sounds.beep(); });
}

// The archive or folder a set is to come from, asked in two steps: which kind, then where.
static std::string AskForTextureSetSource(QWidget* parent)
{
    QMessageBox ask(QMessageBox::Question, QStringLiteral("Add Texture Set"),
                    QStringLiteral("Add a texture set from an archive or from a folder?"),
                    QMessageBox::Cancel, parent);
    QPushButton* archive = ask.addButton(QStringLiteral("Archive…"), QMessageBox::AcceptRole);
    QPushButton* folder = ask.addButton(QStringLiteral("Folder…"), QMessageBox::AcceptRole);
    ask.exec();
    QString chosen;
    if (ask.clickedButton() == archive)
        chosen = QFileDialog::getOpenFileName(
            parent, QStringLiteral("Add Texture Set"), {},
            QStringLiteral("Archives (*.zip *.7z *.rar *.tar *.tgz *.tar.gz *.tar.bz2 *.tar.xz);;"
                           "All files (*)"));
    else if (ask.clickedButton() == folder)
        chosen = QFileDialog::getExistingDirectory(parent, QStringLiteral("Add Texture Set"));
    return chosen.toStdString();
}

void Form1::mnuAddTextureSet_Click()
{
    const std::string source =
        chooseTextureSetSource ? chooseTextureSetSource() : AskForTextureSetSource(this);
    if (!source.empty())
        AddTextureSetFrom(source);
}

void Form1::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls() && event->mimeData()->urls().front().isLocalFile())
        event->acceptProposedAction();
}

void Form1::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            AddTextureSetFrom(url.toLocalFile().toStdString());
}

void Form1::AddTextureSetFrom(const std::string& source)
{
    const LibraryChange change = AddTextureSet(services_.files, services_.messages, *state_.ini,
                                               state_.paths, Sets(), source, {});
    if (!change.problem.empty())
        services_.messages.ShowMessage("The set was not added:\n" + change.problem + ".",
                                       MessageStyle::Exclamation, std::string(kAddSetTitle));
    if (change.done)
        ReloadConfiguration();
}

void Form1::ReloadConfiguration()
{
    if (vellumar::optFs_Click(services_, screen_, state_, state_.paths.FsIndex) ==
        LoadOutcome::EndProgram) {
        Q_EMIT programEnded();
        return;
    }
    ShowConfiguration();
    ButtonCtrl(true);
    cmdCont();
    FitWindowToContents();
}

void Form1::optFs_Click(int index)
{
    if (index == state_.paths.FsIndex)
        return;
    if (vellumar::optFs_Click(services_, screen_, state_, index) == LoadOutcome::EndProgram) {
        Q_EMIT programEnded();
        return;
    }
    ShowConfiguration();
    ButtonCtrl(true);
    cmdCont();
    FitWindowToContents();
}

// ---------------------------------------------------------------------------------------------
// Commands

void Form1::cmdRandom_Click()
{
    if (!ButtonSound())
        services_.sounds.beep();
    windowState_.HideSetName = true;
    optSky_->setChecked(true);
    optSky_Click();
    if (!Sets().empty())
        HiddenPick(); // the panel that takes the lists' place
    Apply(HiddenPickControls(!Sets().empty()));
    if (Sets().empty())
        return;
    ShowStatus({});
    const int last = static_cast<int>(Sets().size()) - 1;
    const int pick =
        picker_.PickRandomSet(0, last, state_.settings.AutoRandom.flags, services_.events);
    cmbClouds_Click(pick);
    ImgSky_->clear();
    ImgSky_->show();
    ShowStatus(std::string(kPressInstallText));
}

void Form1::cmdMin_Click()
{
    // Without a notification area a hidden window could not be found again.
    if (QSystemTrayIcon::isSystemTrayAvailable() && PIC_->isVisible())
        hide();
    else
        showMinimized();
}

void Form1::cmdClose_Click()
{
    Timer1_->stop();
    close();
}

void Form1::lblHelp_Click()
{
    const std::string folder = HelpFolder(state_.paths.ProgramPath);
    if (IsOK(FolderExists(services_.files, folder)))
        services_.launcher.openWithDesktop(folder);
}

void Form1::lblOption_Click()
{
    PopUp(mnuPopUpForm_, lblOption_->mapToGlobal(QPoint(0, lblOption_->height())));
}

frmSound* Form1::soundWindow() const
{
    return soundWindow_.data();
}

void Form1::mnuSound_Click()
{
    // One sound window: asked again, the open one comes to the front.
    if (soundWindow_) {
        soundWindow_->raise();
        soundWindow_->activateWindow();
        return;
    }
    soundWindow_ = new frmSound(
        services_, state_,
        soundWindowDoors ? soundWindowDoors() : CreateProgramSoundDoors(services_.clock), this);
    soundWindow_->setAttribute(Qt::WA_DeleteOnClose);
    soundWindow_->show();
}

void Form1::mnuShowIni_Click()
{
    vellumar::mnuShowIni_Click(services_, state_.paths);
}

void Form1::mnuEndProg_Click()
{
    close();
}

void Form1::AutoRandomOff()
{
    windowState_.AutoRandomInterval = 0;
    Timer1_->stop();
    lblTime_->setText(Text(IntervalText(0)));
    ButtonCtrl(true);
    ShowStatusWithAutoRandomOff();
}

void Form1::ShowStatusWithAutoRandomOff()
{
    // In situation mode the status is the situation's own description.
    if (windowState_.SituationMode && !windowState_.HideSetName) {
        lstFLT_Click();
        return;
    }
    if (const auto text =
            StatusWithAutoRandomOff(windowState_, cmbClouds_->currentText().toStdString()))
        ShowStatus(*text);
}

void Form1::ShowToolTips()
{
    // The user's tips from [ToolTipsText], and why a control cannot act where it cannot.
    std::map<std::string, std::string> configured;
    for (const auto& [name, tip] : state_.settings.ToolTips)
        configured[name] = tip;
    for (QWidget* control : findChildren<QWidget*>()) {
        const std::string name = control->objectName().toStdString();
        if (name.empty())
            continue;
        const auto found = configured.find(name);
        const std::string reason =
            name == "optFLT"
                ? situationProblem_
                : UnavailableReason(name, state_.paths.FsPaths[0], state_.paths.FsPaths[1]);
        control->setToolTip(QString::fromStdString(
            ControlTip(found == configured.end() ? std::string() : found->second, reason)));
    }
}

void Form1::ButtonCtrl(bool enabled)
{
    windowState_.SituationCount = lstFLT_->count();
    Apply(vellumar::ButtonCtrl(enabled, windowState_));
}

void Form1::cmdCont()
{
    const bool anyTicked = AnyTicked(ReadTicks(lstClouds_)) || AnyTicked(ReadTicks(lstOption_));
    Apply(vellumar::cmdCont(windowState_, anyTicked));
}

void Form1::ShowStatus(const std::string& text)
{
    lblMsg_->setText(QString::fromStdString(text));
    if (picHiddenPick_)
        picHiddenPick_->setText(lblMsg_->text());
}

void Form1::Apply(const WindowChanges& changes)
{
    for (const ControlSwitch& entry : changes.visible)
        if (auto* control = findChild<QWidget*>(QString::fromStdString(entry.name)))
            control->setVisible(entry.on);
    for (const ControlSwitch& entry : changes.enabled)
        if (auto* control = findChild<QWidget*>(QString::fromStdString(entry.name)))
            control->setEnabled(entry.on);
    // The panel of the file lists takes room only while they are shown.
    filePanel_->setVisible(!lstClouds_->isHidden() || !cmbClouds_->isHidden() ||
                           !lstOption_->isHidden() || !cmbOption_->isHidden());
}

void Form1::PopUp(QMenu* menu, const QPoint& globalPosition)
{
    menu->popup(globalPosition);
}

// ---------------------------------------------------------------------------------------------
// The window itself and the notification-area icon

void Form1::SysTrayIcon(bool add)
{
    if (!add) {
        PIC_->hide();
        return;
    }
    PIC_->setIcon(windowIcon());
    PIC_->setToolTip(QStringLiteral("Show/Hide Window"));
    PIC_->show();
}

void Form1::PIC_Activated(QSystemTrayIcon::ActivationReason reason)
{
    switch (reason) {
    case QSystemTrayIcon::Trigger:
        if (isHidden() || isMinimized()) {
            showNormal();
            raise();
            activateWindow();
        } else {
            hide();
        }
        break;
    case QSystemTrayIcon::Context:
        // The menu opens by itself; a visible window comes to the front with it.
        if (isVisible() && !isMinimized()) {
            raise();
            activateWindow();
        }
        break;
    default:
        break;
    }
}

void Form1::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    skin::PaintPanel(painter, rect());
}

void Form1::mousePressEvent(QMouseEvent* event)
{
    // A borderless panel: the user drags it by its body.
    if (!drag_.press(*this, event))
        QWidget::mousePressEvent(event);
}

void Form1::mouseMoveEvent(QMouseEvent* event)
{
    if (!drag_.move(*this, event))
        QWidget::mouseMoveEvent(event);
}

void Form1::mouseReleaseEvent(QMouseEvent* event)
{
    drag_.release();
    QWidget::mouseReleaseEvent(event);
}

void Form1::showEvent(QShowEvent* event)
{
    SysTrayIcon(true);
    QWidget::showEvent(event);
}

void Form1::changeEvent(QEvent* event)
{
    // Form_Activate: the icon comes back should the notification area have been restarted.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        SysTrayIcon(true);
    QWidget::changeEvent(event);
}

void Form1::cmdInst_Click()
{
    ButtonSound();
    InstallChosenSet();
}

bool Form1::InstallChosenSet()
{
    const int index = cmbClouds_->currentIndex();
    if (index < 0)
        return false;
    InstallRequest request;
    request.setName = cmbClouds_->currentText().toStdString();
    request.cloudSetFolder = Sets()[static_cast<std::size_t>(index)].folder;
    request.optionSetFolder = CurrentOptionSetFolder();
    request.cloudFiles = ReadTicks(lstClouds_);
    request.optionFiles = ReadTicks(lstOption_);
    request.hideSetName = windowState_.HideSetName;
    request.autoRandomRunning = windowState_.AutoRandomInterval != 0;
    request.backupOriginals = state_.settings.BackupOriginals;
    TextureServices textures = Textures();
    const InstallOutcome outcome =
        InstallTextureSet(textures, TextureFoldersOf(state_.paths), request, record_);
    if (outcome.lastInstallTime)
        windowState_.LastInstallTime = *outcome.lastInstallTime;
    if (outcome.stopAutoRandom)
        AutoRandomOff();
    RefreshSetsInPlace();
    return outcome.installed;
}

void Form1::RefreshSetsInPlace()
{
    setsInPlace_->refresh(TextureFoldersOf(state_.paths), Sets());
}

bool Form1::SetsInPlaceBeingRead() const
{
    return setsInPlace_->busy();
}

bool Form1::InstallChosenSituation()
{
    SituationRequest request;
    if (const QListWidgetItem* item = lstFLT_->currentItem())
        request.name = item->text().toStdString();
    request.autoRandomRunning = windowState_.AutoRandomInterval != 0;
    TextureServices textures = Textures();
    const SituationOutcome outcome =
        InstallSituation(textures, services_.registry, state_, request, record_, [this] {
            if (!ButtonSound())
                services_.sounds.beep();
        });
    if (outcome.lastInstallTime)
        windowState_.LastInstallTime = *outcome.lastInstallTime;
    if (outcome.stopAutoRandom)
        AutoRandomOff();
    RefreshSetsInPlace();
    lstFLT_Click(); // the description again, in place of the install's progress
    return outcome.ok;
}

bool Form1::ButtonSound()
{
    return PlayButtonSound(services_, SoundSourcesOf(state_));
}

// ---------------------------------------------------------------------------------------------
// Install & Start and the simulator watch

void Form1::cmdInstAndStart_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                                      const QPoint& globalPosition)
{
    if (button != Qt::LeftButton && button != Qt::RightButton)
        return;
    const StartMouseDown next = vellumar::cmdInstAndStart_MouseDown(
        button == Qt::RightButton ? MouseButton::Right : MouseButton::Left,
        modifiers.testFlag(Qt::ShiftModifier), windowState_.AutoRandomInterval, startFlags_);
    if (next == StartMouseDown::ClickNow)
        cmdInstAndStart_Click();
    else if (next == StartMouseDown::StartModeMenu)
        PopUp(mnuPopUpStartMode_, globalPosition);
}

void Form1::mnuNotStartFs_Click()
{
    startFlags_.StartFsAfterInstall = false;
    cmdInstAndStart_Click();
}

void Form1::mnuCancel_Click()
{
    startFlags_ = StartFlags{};
}

void Form1::cmdInstAndStart_Click()
{
    InstallAndStartContext run(services_.messages, services_.clock, services_.simulator,
                               windowState_.AutoRandomInterval, windowState_.LastInstallTime,
                               OrderPosition_);
    run.situationMode = windowState_.SituationMode;
    run.selectionFlags = state_.settings.AutoRandom.flags;
    run.UnloadAfterFsStart = state_.settings.UnloadAfterFsStart;
    run.fsFolder = state_.paths.FsPath;
    run.fsExecutable = SimulatorExecutable();
    run.installChosenSet = [this] { return InstallChosenSet(); };
    run.installSituation = [this] { return InstallChosenSituation(); };
    run.beep = [this] { services_.sounds.beep(); };
    run.openAutoRandomSelection = [this] { lblAutoRandom_Click(); };
    run.armAutoRandom = [this] {
        ButtonCtrl(false);
        Timer1_->start();
    };
    run.showAutoRandomOff = [this] { lblTime_->setText(Text(IntervalText(0))); };
    run.rotateSplash = [this] {
        RotateSplash(services_.files, services_.events, *state_.ini, state_.paths.FsPath, splash_,
                     splashDraw_);
    };
    run.closeMainWindow = [this] { close(); };
    const StartFlags flags = startFlags_;
    startFlags_ = StartFlags{}; // a click without a press of its own starts as a plain one
    vellumar::cmdInstAndStart_Click(run, flags);
}

// ---------------------------------------------------------------------------------------------
// AutoRandom

void Form1::lblAutoRandom_Click()
{
    // Modal to this window, without a nested event loop: the countdown and the watch go on.
    auto* selection = new frmRandSel(services_, state_, this);
    selection->setAttribute(Qt::WA_DeleteOnClose);
    selectionWindow_ = selection;
    connect(selection, &frmRandSel::iniChanged, this, &Form1::close, Qt::QueuedConnection);
    selection->open();
}

void Form1::lblTime_MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    if (button != Qt::LeftButton && button != Qt::RightButton)
        return;
    ButtonSound();
    const IntervalClick click =
        IntervalClickFor(button == Qt::RightButton, modifiers.testFlag(Qt::ShiftModifier),
                         modifiers.testFlag(Qt::ControlModifier));
    const int tenths = NextIntervalTenths(IntervalTenths(windowState_.AutoRandomInterval), click);
    if (click == IntervalClick::Off)
        OrderPosition_ = 0;
    windowState_.AutoRandomInterval = IntervalMinutes(tenths);
    if (tenths == 0) {
        AutoRandomOff();
        return;
    }
    lblTime_->setText(Text(IntervalText(windowState_.AutoRandomInterval)));
    cmdInst_->setEnabled(false);
    // AutoRandom picks from the whole library: a chosen filter goes back to "All ".
    if (windowState_.ChosenFilter != SetFilter::All)
        lblFilter_Click(SetFilter::All);
}

void Form1::Timer1_Timer()
{
    AutoRandomRun run;
    run.AutoRandomInterval = windowState_.AutoRandomInterval;
    run.LastInstallTime = windowState_.LastInstallTime;
    run.OrderPosition = OrderPosition_;
    run.LastInstallOk = LastInstallOk_;
    AutoRandomSteps steps(services_.clock, services_.events, picker_, state_.settings.AutoRandom);
    steps.RandomWait = state_.settings.RandomWait;
    steps.HideSetName = windowState_.HideSetName;
    steps.setName = [this](int set) { return Sets()[static_cast<std::size_t>(set)].name; };
    steps.autoRandomSound = [this] { PlayAutoRandomSound(services_, SoundSourcesOf(state_)); };
    steps.install = [this](int set) {
        cmbClouds_Click(set);
        return InstallChosenSet();
    };
    int current = cmbClouds_->currentIndex();
    const AutoRandomTick tick = vellumar::Timer1_Timer(run, steps, current);
    // An install that failed while copying has switched AutoRandom off meanwhile.
    if (windowState_.AutoRandomInterval == 0)
        return;
    windowState_.LastInstallTime = run.LastInstallTime;
    OrderPosition_ = run.OrderPosition;
    LastInstallOk_ = run.LastInstallOk;
    // Five times a second: the status line is redrawn only when its text changes.
    if (lblMsg_->text().toStdString() != tick.status)
        ShowStatus(tick.status);
}

std::string Form1::SimulatorExecutable() const
{
    const std::string& name =
        state_.paths.FsExeNames[static_cast<std::size_t>(state_.paths.FsIndex & 1)];
    return name.empty() ? std::string(kFsExeName) : name;
}

void Form1::tmrFsCheck2_Timer()
{
    if (vellumar::tmrFsCheck2_Timer(services_.simulator, SimulatorExecutable(), fsWatch_)) {
        // The simulator has closed: AutoRandom goes off, as a right click on lblTime does,
        // even when it is off already.
        lblTime_MouseDown(Qt::RightButton, Qt::NoModifier);
    }
}

void Form1::cmdBackUp_Click()
{
    // The status line names the set, shows each copy, and names the set again when done.
    ShowChosenSet();
    TextureServices textures = Textures();
    BackupSelectedFiles(textures, TextureFoldersOf(state_.paths), ReadTicks(lstClouds_),
                        ReadTicks(lstOption_));
    ShowChosenSet();
}

void Form1::mnuBkAll_Click()
{
    TextureServices textures = Textures();
    vellumar::mnuBkAll_Click(textures, TextureFoldersOf(state_.paths),
                             [this] { services_.sounds.beep(); });
    ShowChosenSet();
}

void Form1::cmdToOrg_Click()
{
    ShowChosenSet();
    TextureServices textures = Textures();
    RestoreOriginals(textures, TextureFoldersOf(state_.paths), ReadTicks(lstClouds_),
                     ReadTicks(lstOption_));
    RefreshSetsInPlace();
    ShowChosenSet();
    SysTrayIcon(true);
}

TextureServices Form1::Textures()
{
    return {services_.messages,
            services_.files,
            services_.events,
            services_.clock,
            [this](const std::string& text) { ShowStatus(text); },
            [this](std::uint64_t done, std::uint64_t total) { ShowCopyProgress(done, total); }};
}

void Form1::ShowChosenSet()
{
    ShowStatus(SetStatusText(windowState_, cmbClouds_->currentText().toStdString()));
}

void Form1::ShowCopyProgress(std::uint64_t done, std::uint64_t total)
{
    const CopyBar bar = CopyBarFor(done, total);
    prgCopy_->setValue(bar.perMille);
    prgCopy_->setVisible(bar.visible);
}

void Form1::mnuLastInst_Click()
{
    services_.messages.ShowMessage(record_.LastInstalledText(), MessageStyle::OKOnly,
                                   "Last Installed Data");
}

void Form1::mnuRestoreOriginals_Click()
{
    if (OriginalsStore* store = services_.originals.store()) {
        TextureServices textures = Textures();
        RestoreSimulatorOriginals(textures, *store);
        RefreshSetsInPlace();
    }
}

void Form1::closeEvent(QCloseEvent* event)
{
    // Form_Unload: the record of the sets installed last is the one thing written at the end.
    if (state_.ini)
        record_.SaveLastInstalled(*state_.ini, services_.events);
    Timer1_->stop();
    tmrFsCheck2_->stop();
    // The secondary windows: the music window, the selection, then the sound window.
    if (soundWindow_)
        soundWindow_->CloseMusicOrder();
    if (selectionWindow_)
        selectionWindow_->close();
    if (soundWindow_)
        soundWindow_->close();
    SysTrayIcon(false);
    event->accept();
    Q_EMIT unloaded();
}

} // namespace vellumar
