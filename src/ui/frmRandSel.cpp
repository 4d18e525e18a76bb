#include "ui/frmRandSel.h"

#include "app/CloudIni.h"
#include "app/ProgramSounds.h"
#include "app/StartUpSequence.h"
#include "common/MessageService.h"
#include "common/Services.h"
#include "common/widgets/DialogKeys.h"
#include "common/widgets/Skin.h"
#include "common/widgets/TickBox.h"
#include "textures/TextureSetEntry.h"

#include <QAbstractItemModel>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vellumar {

namespace {

constexpr int kSetRole = Qt::UserRole;

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace

frmRandSel::frmRandSel(Services& services, ProgramState& state, QWidget* parent)
    : QDialog(parent)
    , services_(services)
    , state_(state)
    , selection_(state.settings.AutoRandom)
{
    setObjectName(QStringLiteral("frmRandSel"));
    setWindowTitle(QStringLiteral("AutoRandom Data Selection"));
    setWindowIcon(skin::AppIcon());
    setPalette(skin::PanelPalette());
    setAutoFillBackground(true);

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(14, 12, 14, 12);
    root->setSpacing(8);

    auto* modes = new QHBoxLayout;
    optRnd_ = new QRadioButton(QStringLiteral("Random"));
    optRnd_->setObjectName(QStringLiteral("optRnd"));
    optRnd_->setToolTip(QStringLiteral("Install a random set among the ticked ones"));
    optOrder_ = new QRadioButton(QStringLiteral("Order"));
    optOrder_->setObjectName(QStringLiteral("optOrder"));
    optOrder_->setToolTip(QStringLiteral("Install the ticked sets in this order; drag to arrange"));
    modes->addWidget(optRnd_);
    modes->addWidget(optOrder_);
    modes->addStretch();
    root->addLayout(modes);

    lblHint_ = new QLabel;
    lblHint_->setObjectName(QStringLiteral("lblHint"));
    lblHint_->setPalette(skin::PanelPalette());
    root->addWidget(lblHint_);

    lstSet_ = new QListWidget;
    lstSet_->setObjectName(QStringLiteral("lstSet"));
    lstSet_->setItemDelegate(new TickDelegate(lstSet_));
    lstSet_->setContextMenuPolicy(Qt::CustomContextMenu);
    lstOrder_ = new QListWidget;
    lstOrder_->setObjectName(QStringLiteral("lstOrder"));
    // A drag list: entries move within it, nothing is dropped in from outside.
    lstOrder_->setDragDropMode(QAbstractItemView::InternalMove);
    lstOrder_->setDefaultDropAction(Qt::MoveAction);
    lstOrder_->setSelectionMode(QAbstractItemView::SingleSelection);
    for (QListWidget* list : {lstSet_, lstOrder_}) {
        list->setMinimumSize(300, 300);
        list->setUniformItemSizes(true);
        root->addWidget(list, 1);
    }

    root->addLayout(DialogKeys(cmdOK_, cmdCancel_));

    mnuPopUp_ = new QMenu(this);
    mnuPopUp_->setObjectName(QStringLiteral("mnuPopUp"));
    QAction* selectAll = mnuPopUp_->addAction(QStringLiteral("Select All(&S)"));
    selectAll->setObjectName(QStringLiteral("mnuSelAll"));
    QAction* clearAll = mnuPopUp_->addAction(QStringLiteral("Clear All(&C)"));
    clearAll->setObjectName(QStringLiteral("mnuClearAll"));

    connect(selectAll, &QAction::triggered, this, [this] { mnuSelAll_Click(true); });
    connect(clearAll, &QAction::triggered, this, [this] { mnuSelAll_Click(false); });
    connect(lstSet_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { mnuPopUp_->popup(lstSet_->viewport()->mapToGlobal(at)); });
    connect(lstSet_, &QListWidget::itemChanged, this, &frmRandSel::lstSet_ItemCheck);
    connect(lstOrder_->model(), &QAbstractItemModel::rowsMoved, this, &frmRandSel::lstOrder_Moved);
    for (QListWidget* list : {lstSet_, lstOrder_})
        connect(list, &QListWidget::itemClicked, list,
                [list](QListWidgetItem* item) { list->setToolTip(item->text()); });
    connect(optRnd_, &QRadioButton::clicked, this, &frmRandSel::optRnd_Click);
    connect(optOrder_, &QRadioButton::clicked, this, &frmRandSel::optOrder_Click);
    connect(cmdOK_, &QPushButton::clicked, this, &frmRandSel::cmdOK_Click);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmRandSel::cmdCancel_Click);

    Form_Load();
}

void frmRandSel::Form_Load()
{
    const std::vector<TextureSetEntry>& sets = state_.settings.Sets;
    selection_.flags.resize(sets.size(), false);
    {
        // Ticks set here are the saved ones: they must not be appended to the order again.
        const QSignalBlocker quiet(lstSet_);
        for (std::size_t i = 0; i < sets.size(); ++i) {
            auto* item = new QListWidgetItem(Text(sets[i].name), lstSet_);
            item->setData(kSetRole, static_cast<int>(i));
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(selection_.flags[i] ? Qt::Checked : Qt::Unchecked);
        }
    }
    if (lstSet_->count() > 0)
        lstSet_->setCurrentRow(0);
    PlayAutoRandomSound();
    ShowOrder();
    if (selection_.OrderMode) {
        optOrder_->setChecked(true);
        optOrder_Click();
    } else {
        optRnd_->setChecked(true);
        optRnd_Click();
    }
}

void frmRandSel::PlayAutoRandomSound()
{
    vellumar::PlayAutoRandomSound(services_, SoundSourcesOf(state_));
}

void frmRandSel::ShowOrder()
{
    // Filling the list moves no row, so lstOrder_Moved does not run meanwhile.
    lstOrder_->clear();
    for (int index : selection_.order) {
        auto* item = new QListWidgetItem(
            Text(state_.settings.Sets[static_cast<std::size_t>(index)].name), lstOrder_);
        item->setData(kSetRole, index);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
    }
}

void frmRandSel::lstSet_ItemCheck(QListWidgetItem* item)
{
    TickAutoRandomSet(selection_, item->data(kSetRole).toInt(), item->checkState() == Qt::Checked);
    ShowOrder();
}

void frmRandSel::lstOrder_Moved()
{
    selection_.order.clear();
    for (int row = 0; row < lstOrder_->count(); ++row)
        selection_.order.push_back(lstOrder_->item(row)->data(kSetRole).toInt());
}

void frmRandSel::optRnd_Click()
{
    lstSet_->show();
    lstOrder_->hide();
    lblHint_->setText(QStringLiteral("Tick the sets that Auto Install may choose from."));
    selection_.OrderMode = false;
}

void frmRandSel::optOrder_Click()
{
    lstSet_->hide();
    lstOrder_->show();
    lblHint_->setText(QStringLiteral("Drag the ticked sets into the order Auto Install follows."));
    selection_.OrderMode = true;
}

void frmRandSel::mnuSelAll_Click(bool ticked)
{
    for (int row = 0; row < lstSet_->count(); ++row)
        lstSet_->item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

void frmRandSel::SetButtons(bool enabled)
{
    cmdOK_->setEnabled(enabled);
    cmdCancel_->setEnabled(enabled);
}

void frmRandSel::cmdCancel_Click()
{
    SetButtons(false);
    selection_ = state_.settings.AutoRandom; // nothing of the edits is kept
    reject();
}

void frmRandSel::cmdOK_Click()
{
    SetButtons(false);
    if (!selection_.anySelected()) {
        optRnd_->setChecked(true);
        optRnd_Click();
        services_.messages.ShowMessage(
            "Please select one set at least.\nNo AutoRandom set is selected.",
            MessageStyle::Information, "No selected data");
        SetButtons(true);
        return;
    }
    if (IniChangedDuringRun(services_.messages, *state_.ini)) {
        Q_EMIT iniChanged();
        reject();
        return;
    }
    WriteAutoRandomSelection(*state_.ini, state_.settings.Sets, selection_);
    ReloadAutoRandomSelection(*state_.ini, state_.settings.Sets, state_.settings.AutoRandom);
    accept();
}

} // namespace vellumar
