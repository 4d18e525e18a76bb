#pragma once

#include "app/AutoRandomSelection.h"

#include <QDialog>

#include <functional>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QPushButton;
class QRadioButton;

namespace vellumar {

struct ProgramState;
struct Services;

// "AutoRandom Data Selection": the sets AutoRandom may install, ticked in lstSet (random mode),
// or arranged by dragging in lstOrder (order mode). OK keeps the choice in cloud.ini; Cancel
// leaves everything as it was.
class frmRandSel final : public QDialog {
    Q_OBJECT

public:
    frmRandSel(Services& services, ProgramState& state, QWidget* parent = nullptr);

    // What the window edits; the program's own selection changes only with OK.
    const AutoRandomSelection& selection() const { return selection_; }

Q_SIGNALS:
    // cloud.ini was changed by someone else while the program ran: the user has been told,
    // and the main window closes.
    void iniChanged();

private:
    void Form_Load();
    void lstSet_ItemCheck(QListWidgetItem* item);
    void lstOrder_Moved();
    void optRnd_Click();
    void optOrder_Click();
    void mnuSelAll_Click(bool ticked);
    void cmdOK_Click();
    void cmdCancel_Click();
    void ShowOrder();
    void PlayAutoRandomSound();
    void SetButtons(bool enabled);

    Services& services_;
    ProgramState& state_;
    AutoRandomSelection selection_;

    QLabel* lblHint_ = nullptr;
    QListWidget* lstSet_ = nullptr;
    QListWidget* lstOrder_ = nullptr;
    QRadioButton* optRnd_ = nullptr;
    QRadioButton* optOrder_ = nullptr;
    QPushButton* cmdOK_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    QMenu* mnuPopUp_ = nullptr;
};

} // namespace vellumar
