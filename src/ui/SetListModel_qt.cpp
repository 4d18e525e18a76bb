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

QVariant SetListModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    const TextureSetEntry* entry = entryAt(index.row());
    if (!entry)
        return {};
    return QString::fromStdString(entry->name);
}

} // namespace vellumar
