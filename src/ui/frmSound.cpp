#include "ui/frmSound.h"

#include "app/ProgramSounds.h"
#include "app/StartUpSequence.h"
#include "common/Services.h"
#include "common/widgets/Skin.h"
#include "sound/MediaControl.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

namespace vellumar {

namespace {

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace

frmSound::frmSound(Services& services, ProgramState& state, std::unique_ptr<MediaControl> cd,
                   QWidget* parent)
    : QDialog(parent)
    , services_(services)
    , state_(state)
    , control_(std::move(cd))
    , cd_(*control_, services.messages)
    , cdPanel_(cd_)
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
    lblTrack_ = new QLabel;
    lblTrack_->setObjectName(QStringLiteral("lblTrack"));
    lblTrack_->setMinimumWidth(
        lblTrack_->fontMetrics().horizontalAdvance(QStringLiteral("Track00")) + 8);
    ticks->addWidget(chkCD_);
    ticks->addWidget(chkRepeatCD_);
    ticks->addStretch();
    ticks->addWidget(lblTrack_);
    cdLayout->addLayout(ticks);
    hsvTrack_ = new QScrollBar(Qt::Horizontal);
    hsvTrack_->setObjectName(QStringLiteral("hsvTrack"));
    hsvTrack_->setToolTip(QStringLiteral("Choose the track"));
    hsvTrack_->setPageStep(1);
    hsvTrack_->setMinimumWidth(320);
    cdLayout->addWidget(hsvTrack_);
    lblCdStatus_ = new QLabel;
    lblCdStatus_->setObjectName(QStringLiteral("lblCdStatus"));
    lblCdStatus_->setWordWrap(true);
    QPalette dim = lblCdStatus_->palette();
    dim.setColor(QPalette::WindowText, skin::PanelTextDim());
    lblCdStatus_->setPalette(dim);
    cdLayout->addWidget(lblCdStatus_);
    root->addWidget(cdBox);
    root->addStretch();

    tmrCD_ = new QTimer(this);
    tmrCD_->setObjectName(QStringLiteral("tmrCD"));
    tmrCD_->setInterval(1000);

    connect(tmrCD_, &QTimer::timeout, this, &frmSound::tmrCD_Timer);
    connect(chkCD_, &QCheckBox::clicked, this, &frmSound::chkCD_Click);
    connect(chkRepeatCD_, &QCheckBox::toggled, this,
            [this](bool ticked) { cdPanel_.controls.chkRepeatCD = ticked; });
    connect(hsvTrack_, &QScrollBar::valueChanged, this, &frmSound::hsvTrack_Change);
    connect(hsvTrack_, &QScrollBar::sliderMoved, this, [this](int track) {
        cdPanel_.hsvTrack_Scroll(track);
        lblTrack_->setText(Text(cdPanel_.controls.lblTrack));
    });
    // While the user drags, only the label follows; the track changes where the drag ends.
    hsvTrack_->setTracking(false);

    Form_Load();
}

frmSound::~frmSound()
{
    Form_Unload();
}

void frmSound::Form_Load()
{
    PlayButtonSound(services_, SoundSourcesOf(state_));
    cdPanel_.Form_Load();
    tmrCD_Timer();
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
    tmrCD_->stop();
    cdPanel_.Form_Unload();
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

    lblCdStatus_->setText(Text(CdStatusText(cd_, control_->AudioOutputProblem())));
}

} // namespace vellumar
