#pragma once

#include "common/TextList.h"

#include <QAbstractListModel>

#include <string>
#include <unordered_set>
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

    // True (with a tool tip that says so) for the rows of sets whose every file is in the
    // simulator now; the set lists draw a quiet mark for them.
    static constexpr int InPlaceRole = Qt::UserRole + 1;
    // The sets, by folder, that have every file in the simulator now.
    void markSetsInPlace(const TextList& folders);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    const TextureSetEntry* entryAt(int row) const;

    const std::vector<TextureSetEntry>* sets_ = nullptr;
    const std::vector<int>* rows_ = nullptr;
    std::unordered_set<std::string> inPlace_;
};

} // namespace vellumar
