#include "ui/SetListModel_qt.h"

#include "textures/TextureSetEntry.h"

namespace vellumar {

SetListModel::SetListModel(QObject* parent)
    : QAbstractListModel(parent)
{}

void SetListModel::showSets(const std::vector<TextureSetEntry>* sets, const std::vector<int>* rows)
{
    beginResetModel();
    sets_ = sets;
    rows_ = rows;
    endResetModel();
}

int SetListModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() || !sets_)
        return 0;
    return static_cast<int>(rows_ ? rows_->size() : sets_->size());
}

const TextureSetEntry* SetListModel::entryAt(int row) const
{
    if (!sets_ || row < 0 || row >= rowCount())
        return nullptr;
    const int index = rows_ ? (*rows_)[static_cast<std::size_t>(row)] : row;
    if (index < 0 || static_cast<std::size_t>(index) >= sets_->size())
        return nullptr;
    return &(*sets_)[static_cast<std::size_t>(index)];
}

void SetListModel::markSetsInPlace(const TextList& folders)
{
    std::unordered_set<std::string> inPlace(folders.begin(), folders.end());
    if (inPlace == inPlace_)
        return;
    inPlace_ = std::move(inPlace);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {InPlaceRole, Qt::ToolTipRole});
}

QVariant SetListModel::data(const QModelIndex& index, int role) const
{
    const TextureSetEntry* entry = entryAt(index.row());
    if (!entry)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return QString::fromStdString(entry->name);
    case InPlaceRole:
        return inPlace_.contains(entry->folder);
    case Qt::ToolTipRole:
        if (inPlace_.contains(entry->folder))
            return tr("Every file of this set is in the simulator now.");
        return {};
    default:
        return {};
    }
}

} // namespace vellumar
