#include "ui/frmMusic.h"

#include "common/PathText.h"
#include "common/cDialog_qt.h"
#include "common/widgets/DialogKeys.h"
#include "common/widgets/Skin.h"

#include <QAbstractItemModel>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vellumar {

namespace {

constexpr int kPathRole = Qt::UserRole;

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace

frmMusic::frmMusic(FileOperations& files, MusicOrder order, std::string channelFolder,
                   QWidget* parent)
    : QDialog(parent)
    , files_(files)
    , original_(order)
    , order_(std::move(order))
    , channelFolder_(std::move(channelFolder))
{
    setObjectName(QStringLiteral("frmMusic"));
    setWindowTitle(QStringLiteral("Music Order"));
    setWindowIcon(skin::AppIcon());
    setPalette(skin::PanelPalette());
    setAutoFillBackground(true);
    setStyleSheet(skin::PanelStyleSheet());

    chooser_ = [this](const std::string& folder, const std::string& filter) {
        cDialog dialog(files_, this);
        dialog.Title = "Add Music";
        dialog.Filter = filter;
        dialog.InitialFolder = folder;
        dialog.Multiple = true;
        return FilesOfDialogAnswer(dialog.ShowOpen());
    };

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(14, 12, 14, 12);
    root->setSpacing(8);

    auto* hint = new QLabel(QStringLiteral("Channel 3 plays the list from the top; drag a piece "
                                           "to move it."));
    hint->setObjectName(QStringLiteral("lblHint"));
    root->addWidget(hint);

    auto* middle = new QHBoxLayout;
    lstMusic_ = new QListWidget;
    lstMusic_->setObjectName(QStringLiteral("lstMusic"));
    // A drag list: pieces move within it, nothing is dropped in from outside.
    lstMusic_->setDragDropMode(QAbstractItemView::InternalMove);
    lstMusic_->setDefaultDropAction(Qt::MoveAction);
    lstMusic_->setSelectionMode(QAbstractItemView::SingleSelection);
    lstMusic_->setUniformItemSizes(true);
    lstMusic_->setMinimumSize(340, 280);
    middle->addWidget(lstMusic_, 1);

    auto* side = new QVBoxLayout;
    auto button = [side](const char* name, const char* text, const char* tip) {
        auto* push = new QPushButton(QString::fromUtf8(text));
        push->setObjectName(QString::fromLatin1(name));
        push->setToolTip(QString::fromUtf8(tip));
        side->addWidget(push);
        return push;
    };
    cmdAdd_ = button("cmdAdd", "Add...", "Add sound or music files, or M3U playlists");
    cmdRemove_ = button("cmdRemove", "Remove", "Take the selected piece off the list");
    side->addSpacing(12);
    cmdUp_ = button("cmdUp", "Move Up", "Play the selected piece earlier");
    cmdDown_ = button("cmdDown", "Move Down", "Play the selected piece later");
    side->addStretch();
    middle->addLayout(side);
    root->addLayout(middle, 1);

    root->addLayout(DialogKeys(cmdOK_, cmdCancel_));

    connect(cmdAdd_, &QPushButton::clicked, this, &frmMusic::cmdAdd_Click);
    connect(cmdRemove_, &QPushButton::clicked, this, &frmMusic::cmdRemove_Click);
    connect(cmdUp_, &QPushButton::clicked, this, [this] { MoveSelected(-1); });
    connect(cmdDown_, &QPushButton::clicked, this, [this] { MoveSelected(1); });
    connect(cmdOK_, &QPushButton::clicked, this, &frmMusic::cmdOK_Click);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmMusic::reject);
    connect(lstMusic_->model(), &QAbstractItemModel::rowsMoved, this, &frmMusic::lstMusic_Moved);
    connect(lstMusic_, &QListWidget::currentRowChanged, this, &frmMusic::ShowButtons);

    ShowList(0);
}

void frmMusic::ShowList(int selectRow)
{
    // Filling the list moves no row, so lstMusic_Moved does not run meanwhile.
    lstMusic_->clear();
    for (const std::string& path : order_.files) {
        auto* item = new QListWidgetItem(Text(LastPathComponent(path)), lstMusic_);
        item->setData(kPathRole, Text(path));
        item->setToolTip(Text(path));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
    }
    if (lstMusic_->count() > 0)
        lstMusic_->setCurrentRow(std::clamp(selectRow, 0, lstMusic_->count() - 1));
    ShowButtons();
}

void frmMusic::ShowButtons()
{
    const int row = lstMusic_->currentRow();
    cmdRemove_->setEnabled(row >= 0);
    cmdUp_->setEnabled(row > 0);
    cmdDown_->setEnabled(row >= 0 && row + 1 < lstMusic_->count());
}

void frmMusic::cmdAdd_Click()
{
    const TextList chosen =
        chooser_(MusicAddFolder(files_, order_, channelFolder_), std::string(kMusicFileFilter));
    if (chosen.empty())
        return;
    AddMusicFiles(order_, chosen);
    ShowList(static_cast<int>(order_.files.size() - chosen.size()));
}

void frmMusic::cmdRemove_Click()
{
    const int row = lstMusic_->currentRow();
    if (row >= 0 && RemoveMusicFile(order_, static_cast<std::size_t>(row)))
        ShowList(row);
}

void frmMusic::MoveSelected(int by)
{
    const int row = lstMusic_->currentRow();
    if (row < 0 || row + by < 0)
        return;
    if (MoveMusicFile(order_, static_cast<std::size_t>(row), static_cast<std::size_t>(row + by)))
        ShowList(row + by);
}

void frmMusic::lstMusic_Moved()
{
    order_.files.clear();
    for (int row = 0; row < lstMusic_->count(); ++row)
        order_.files.push_back(lstMusic_->item(row)->data(kPathRole).toString().toStdString());
    ShowButtons();
}

void frmMusic::cmdOK_Click()
{
    accept();
}

void frmMusic::reject()
{
    order_ = original_; // nothing of the edits is kept
    QDialog::reject();
}

} // namespace vellumar
