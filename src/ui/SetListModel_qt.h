#pragma once

#include <QAbstractListModel>

#include <vector>

namespace vellumar {

struct TextureSetEntry;

// The names of the catalogue's sets for lstSky, lstSkyFil and cmbClouds. The views read the
// catalogue itself, row by row as they draw, rather than holding one item per set: a library
// of a thousand sets then costs nothing until it is scrolled.
class SetListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    explicit SetListModel(QObject* parent = nullptr);

    // Shows every set of `sets`, or only the catalogue indices in `rows` when it is given. Both
    // stay owned by the caller; call again whenever either changes.
    void showSets(const std::vector<TextureSetEntry>* sets, const std::vector<int>* rows = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    const TextureSetEntry* entryAt(int row) const;

    const std::vector<TextureSetEntry>* sets_ = nullptr;
    const std::vector<int>* rows_ = nullptr;
};

} // namespace vellumar
