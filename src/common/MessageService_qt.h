#pragma once

#include "MessageService.h"

class QWidget;

namespace vellumar {

// Messages shown in Qt's standard message box. The program's own skinned message box will
// take over ShowMessage; the plain system message box stays here.
class QtMessageService final : public MessageService {
public:
    explicit QtMessageService(QWidget* owner = nullptr);

    int ShowMessage(const std::string& text, int style, const std::string& title) override;
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override;

private:
    QWidget* owner_;
};

} // namespace vellumar
