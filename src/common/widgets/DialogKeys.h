#pragma once

class QHBoxLayout;
class QPushButton;

namespace vellumar {

// The row of OK and Cancel at the foot of a dialog, pushed to the right, OK the default;
// named cmdOK and cmdCancel, as tests and screenshots find them.
QHBoxLayout* DialogKeys(QPushButton*& ok, QPushButton*& cancel);

} // namespace vellumar
