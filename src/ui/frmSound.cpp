#include "ui/frmSound.h"

#include "app/CloudIni.h"
#include "app/ProgramSounds.h"
#include "app/StartUpSequence.h"
#include "common/Clock.h"
#include "common/Services.h"
#include "common/widgets/ClickableLabel.h"
#include "common/widgets/Skin.h"
#include "config/CloudIniFile.h"
#include "sound/SoundWindowSettings.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

namespace vellumar {

namespace {

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

QString Name(const char* prefix, int channel)
{
    return QString::fromLatin1(prefix) + QString::number(channel);
}

QLabel* DimLabel()
{
    auto* label = new QLabel;
    QPalette dim = label->palette();
    dim.setColor(QPalette::WindowText, skin::PanelTextDim());
    label->setPalette(dim);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton* IconButton(QStyle::StandardPixmap icon, const QString& name, const QString& tip)
{
    auto* button = new QPushButton;
    button->setIcon(button->style()->standardIcon(icon));
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setFixedWidth(40);
    return button;
}

QSlider* VolumeSlider(int channel)
{
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(Name("sldVolume", channel));
    slider->setRange(0, 100);
    slider->setPageStep(10);
    slider->setMinimumWidth(120);
    slider->setToolTip(QStringLiteral("Volume"));
    return slider;
}

} // namespace

frmSound::frmSound(Services& services, ProgramState& state, SoundWindowDoors doors, QWidget* parent)
    : QDialog(parent)
    , services_(services)
    , state_(state)
    , doors_(std::move(doors))
    , cd_(*doors_.cd, services.messages)
    , cdPanel_(cd_)
    , channels_{SoundChannel(*doors_.players[0], services.files, services.clock,
                             ClockSeededUniform(services.clock)),
                SoundChannel(*doors_.players[1], services.files, services.clock,
                             ClockSeededUniform(services.clock))}
    , music_(*doors_.players[2], services.files, services.registry)
{
    setObjectName(QStringLiteral("frmSound"));
    setWindowTitle(QStringLiteral("Vellumar Sound"));
    setWindowIcon(skin::AppIcon());
    setPalette(skin::PanelPalette());
    setStyleSheet(skin::PanelStyleSheet());
    setAutoFillBackground(true);

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(14, 12, 14, 12);
    root->setSpacing(10);
    root->setSizeConstraint(QLayout::SetMinimumSize);

    // The CD.
    auto* cdBox = new QGroupBox(QStringLiteral("Audio CD"));
    cdBox->setObjectName(QStringLiteral("fraCD"));
    auto* cdLayout = new QVBoxLayout(cdBox);
    auto* ticks = new QHBoxLayout;
    chkCD_ = new QCheckBox(QStringLiteral("Play"));
    chkCD_->setObjectName(QStringLiteral("chkCD"));
    chkCD_->setToolTip(QStringLiteral("Play the disc from the track shown"));
    chkRepeatCD_ = new QCheckBox(QStringLiteral("Repeat"));
    chkRepeatCD_->setObjectName(QStringLiteral("chkRepeatCD"));
    chkRepeatCD_->setToolTip(QStringLiteral("After the last track, play the disc again"));
    // The track in an instrument readout, as the main window shows its time.
    lblTrack_ = new ReadoutLabel(skin::ReadoutAmber());
    lblTrack_->setObjectName(QStringLiteral("lblTrack"));
    lblTrack_->setAlignment(Qt::AlignCenter);
    lblTrack_->setMinimumSize(84, 26);
    ticks->addWidget(chkCD_);
    ticks->addWidget(chkRepeatCD_);
    ticks->addStretch();
    ticks->addWidget(lblTrack_);
    cdLayout->addLayout(ticks);
    hsvTrack_ = new QScrollBar(Qt::Horizontal);
    hsvTrack_->setObjectName(QStringLiteral("hsvTrack"));
    hsvTrack_->setToolTip(QStringLiteral("Choose the track"));
    hsvTrack_->setPageStep(1);
    // While the user drags, only the label follows; the track changes where the drag ends.
    hsvTrack_->setTracking(false);
    cdLayout->addWidget(hsvTrack_);
    lblCdStatus_ = DimLabel();
    lblCdStatus_->setObjectName(QStringLiteral("lblCdStatus"));
    lblCdStatus_->setWordWrap(true);
    // Two lines: the disc, and why it cannot be heard when that is so.
    lblCdStatus_->setMinimumHeight(2 * lblCdStatus_->fontMetrics().lineSpacing() + 2);
    lblCdStatus_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    cdLayout->addWidget(lblCdStatus_);
    root->addWidget(cdBox);

    // Channels 1 and 2: a folder's sounds, and channel 3: the music list.
    for (int channel = 1; channel <= 3; ++channel) {
        ChannelControls& controls = channelControls_[static_cast<std::size_t>(channel - 1)];
        const bool isMusic = channel == 3;
        auto* box = new QGroupBox(isMusic ? QStringLiteral("Music")
                                          : QStringLiteral("Sound channel %1").arg(channel));
        box->setObjectName(Name("fraChannel", channel));
        auto* grid = new QGridLayout(box);
        grid->setHorizontalSpacing(6);
        auto* keys = new QHBoxLayout;
        keys->setSpacing(4);
        if (isMusic) {
            cmdPrevious_ = IconButton(QStyle::SP_MediaSkipBackward, QStringLiteral("cmdPrevious"),
                                      QStringLiteral("The piece before"));
            keys->addWidget(cmdPrevious_);
        }
        controls.play =
            IconButton(QStyle::SP_MediaPlay, Name("cmdPlay", channel), QStringLiteral("Play"));
        controls.stop =
            IconButton(QStyle::SP_MediaStop, Name("cmdStop", channel), QStringLiteral("Stop"));
        keys->addWidget(controls.play);
        keys->addWidget(controls.stop);
        if (isMusic) {
            cmdNext_ = IconButton(QStyle::SP_MediaSkipForward, QStringLiteral("cmdNext"),
                                  QStringLiteral("The next piece"));
            keys->addWidget(cmdNext_);
        }
        grid->addLayout(keys, 0, 0);
        grid->addWidget(new QLabel(QStringLiteral("Volume")), 0, 1, Qt::AlignRight);
        controls.volume = VolumeSlider(channel);
        grid->addWidget(controls.volume, 0, 2);
        if (isMusic) {
            cmdMusicOrder_ = new QPushButton(QStringLiteral("Music Order\u2026"));
            cmdMusicOrder_->setObjectName(QStringLiteral("cmdMusicOrder"));
            cmdMusicOrder_->setToolTip(QStringLiteral("Choose the music and its order"));
            grid->addWidget(cmdMusicOrder_, 0, 3);
        } else {
            controls.interval = new QSpinBox;
            controls.interval->setObjectName(Name("spnInterval", channel));
            controls.interval->setRange(0, 60);
            controls.interval->setSuffix(QStringLiteral(" s"));
            controls.interval->setPrefix(QStringLiteral("pause "));
            controls.interval->setToolTip(QStringLiteral("Seconds of quiet between two sounds"));
            grid->addWidget(controls.interval, 0, 3);
        }
        grid->setColumnStretch(2, 1);
        controls.status = DimLabel();
        controls.status->setObjectName(Name("lblStatus", channel));
        controls.status->setMinimumWidth(360);
        grid->addWidget(controls.status, 1, 0, 1, 4);
        root->addWidget(box);
    }

    tmrCD_ = new QTimer(this);
    tmrCD_->setObjectName(QStringLiteral("tmrCD"));
    tmrCD_->setInterval(1000);
    tmrChannels_ = new QTimer(this);
    tmrChannels_->setObjectName(QStringLiteral("tmrChannels"));
    tmrChannels_->setInterval(250);

    connect(tmrCD_, &QTimer::timeout, this, &frmSound::tmrCD_Timer);
    connect(chkCD_, &QCheckBox::clicked, this, &frmSound::chkCD_Click);
    connect(chkRepeatCD_, &QCheckBox::toggled, this,
            [this](bool ticked) { cdPanel_.controls.chkRepeatCD = ticked; });
    connect(hsvTrack_, &QScrollBar::valueChanged, this, &frmSound::hsvTrack_Change);
    connect(hsvTrack_, &QScrollBar::sliderMoved, this, [this](int track) {
        cdPanel_.hsvTrack_Scroll(track);
        lblTrack_->setText(Text(cdPanel_.controls.lblTrack));
    });
    connect(tmrChannels_, &QTimer::timeout, this, &frmSound::tmrChannels_Timer);
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        SoundChannel& channel = channels_[i];
        ChannelControls& controls = channelControls_[i];
        connect(controls.play, &QPushButton::clicked, this, [this, &channel] {
            channel.Play();
            ShowChannels();
        });
        connect(controls.stop, &QPushButton::clicked, this, [this, &channel] {
            channel.Stop();
            ShowChannels();
        });
        connect(controls.volume, &QSlider::valueChanged, this,
                [&channel](int percent) { channel.SetVolume(percent); });
        connect(controls.interval, &QSpinBox::valueChanged, this,
                [&channel](int seconds) { channel.SetInterval(seconds); });
    }
    ChannelControls& musicControls = channelControls_[2];
    connect(musicControls.play, &QPushButton::clicked, this, [this] {
        music_.Play();
        ShowChannels();
    });
    connect(musicControls.stop, &QPushButton::clicked, this, [this] {
        music_.Stop();
        ShowChannels();
    });
    connect(cmdPrevious_, &QPushButton::clicked, this, [this] {
        music_.Previous();
        ShowChannels();
    });
    connect(cmdNext_, &QPushButton::clicked, this, [this] {
        music_.Next();
        ShowChannels();
    });
    // The music's volume is the CD's too: both are the music beside the flight.
    connect(musicControls.volume, &QSlider::valueChanged, this, [this](int percent) {
        music_.SetVolume(percent);
        doors_.cd->SetVolume(percent);
    });
    connect(cmdMusicOrder_, &QPushButton::clicked, this, &frmSound::cmdMusicOrder_Click);

    Form_Load();
}

frmSound::~frmSound()
{
    Form_Unload();
}

void frmSound::Form_Load()
{
    PlayButtonSound(services_, SoundSourcesOf(state_));

    const CloudIniSettings& settings = state_.settings;
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        channels_[i].SetFolder(state_.checks.SoundChannelFolders[i]);
        channelControls_[i].interval->setValue(settings.SoundIntvl[i]);
        channels_[i].SetInterval(settings.SoundIntvl[i]);
    }
    music_.SetList(settings.MusicFiles);
    for (std::size_t i = 0; i < channelControls_.size(); ++i) {
        // Set even where the slider already shows the value, so the player hears it too.
        channelControls_[i].volume->setValue(settings.SoundVol[i]);
        if (i < channels_.size())
            channels_[i].SetVolume(settings.SoundVol[i]);
    }
    music_.SetVolume(settings.SoundVol[2]);
    doors_.cd->SetVolume(settings.SoundVol[2]);

    cdPanel_.Form_Load();
    tmrCD_Timer();
    ShowChannels();
    tmrChannels_->start();
}

void frmSound::closeEvent(QCloseEvent* event)
{
    Form_Unload();
    event->accept();
}

void frmSound::Form_Unload()
{
    if (unloaded_)
        return;
    unloaded_ = true;
    CloseMusicOrder();
    tmrCD_->stop();
    tmrChannels_->stop();
    cdPanel_.Form_Unload();
    for (SoundChannel& channel : channels_)
        channel.Stop();
    music_.Stop();
    SaveSettings();
}

void frmSound::SaveSettings()
{
    CloudIniSettings& settings = state_.settings;
    for (std::size_t i = 0; i < channels_.size(); ++i)
        settings.SoundIntvl[i] = channels_[i].interval();
    for (std::size_t i = 0; i < channels_.size(); ++i)
        settings.SoundVol[i] = channels_[i].volume();
    settings.SoundVol[2] = music_.volume();
    settings.MusicFiles = music_.list();
    // A cloud.ini someone else edited meanwhile is theirs: the main window says so and ends
    // the program; nothing is written over their edit.
    if (!state_.ini || state_.ini->ChangedByOthers())
        return;
    SoundWindowSettings written;
    written.intervals = settings.SoundIntvl;
    written.volumes = settings.SoundVol;
    written.lastMusicPath = settings.LastMusicPath;
    written.musicFiles = settings.MusicFiles;
    WriteSoundWindowSettings(*state_.ini, written,
                             IniFolders{state_.paths.ProgramPath, state_.paths.DataFolder},
                             services_.registry);
}

void frmSound::tmrCD_Timer()
{
    cdPanel_.tmrCD_Timer();
    ShowCdControls();
}

void frmSound::chkCD_Click()
{
    cdPanel_.controls.chkCD = chkCD_->isChecked();
    cdPanel_.chkCD_Click();
    ShowCdControls();
}

void frmSound::hsvTrack_Change(int track)
{
    cdPanel_.hsvTrack_Change(track);
    ShowCdControls();
}

void frmSound::ShowCdControls()
{
    const CdControls& shown = cdPanel_.controls;
    {
        // What the rules set is shown, not taken for the user's own change.
        const QSignalBlocker quiet(hsvTrack_);
        hsvTrack_->setRange(shown.hsvTrackMin, shown.hsvTrackMax);
        hsvTrack_->setValue(shown.hsvTrackValue);
    }
    hsvTrack_->setEnabled(shown.hsvTrackEnabled);
    chkCD_->setChecked(shown.chkCD);
    chkCD_->setEnabled(shown.chkCDEnabled);
    lblTrack_->setText(Text(shown.lblTrack));
    if (shown.tmrCDEnabled && !tmrCD_->isActive())
        tmrCD_->start();
    else if (!shown.tmrCDEnabled && tmrCD_->isActive())
        tmrCD_->stop();
    lblCdStatus_->setText(Text(CdStatusText(cd_, doors_.cd->AudioOutputProblem())));
}

void frmSound::tmrChannels_Timer()
{
    for (SoundChannel& channel : channels_)
        channel.Tick();
    music_.Tick();
    ShowChannels();
}

void frmSound::ShowChannels()
{
    for (std::size_t i = 0; i < channels_.size(); ++i) {
        channelControls_[i].status->setText(Text(channels_[i].status()));
        channelControls_[i].play->setEnabled(!channels_[i].playing());
        channelControls_[i].stop->setEnabled(channels_[i].playing());
    }
    ChannelControls& music = channelControls_[2];
    music.status->setText(Text(music_.status()));
    music.play->setEnabled(!music_.playing());
    music.stop->setEnabled(music_.playing());
}

void frmSound::cmdMusicOrder_Click()
{
    if (musicWindow_) {
        musicWindow_->raise();
        musicWindow_->activateWindow();
        return;
    }
    musicWindow_ =
        new frmMusic(services_.files, MusicOrder{music_.list(), state_.settings.LastMusicPath},
                     state_.checks.SoundChannelFolders[2], this);
    musicWindow_->setAttribute(Qt::WA_DeleteOnClose);
    if (chooseMusicFiles)
        musicWindow_->setFileChooser(chooseMusicFiles);
    connect(musicWindow_, &QDialog::accepted, this, [this] {
        const MusicOrder& order = musicWindow_->order();
        state_.settings.LastMusicPath = order.lastMusicPath;
        music_.SetList(order.files);
        ShowChannels();
    });
    // Modal to this window only: the channels and the CD play on while the list is edited.
    musicWindow_->open();
}

void frmSound::CloseMusicOrder()
{
    if (musicWindow_)
        musicWindow_->close();
}

} // namespace vellumar
