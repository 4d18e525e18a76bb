#pragma once

#include <string>

class QWidget;

namespace vellumar {

// Sets the configured proportional font ([Font] Proportional) on every control of a window
// and on the window itself, keeping each control's size and weight. An empty name keeps the
// fonts the window was designed with.
void ApplyProportionalFont(QWidget& window, const std::string& family);

} // namespace vellumar
