#pragma once

#include "common/MessageService.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <string>

namespace vellumar {

// ShowMessage shows the program's own message box, frmMsg; ShowSystemMessage the toolkit's
// standard one, for the few messages that come before frmMsg can be used.
class QtMessageService final : public MessageService {
public:
    explicit QtMessageService(QWidget* owner = nullptr);

    int ShowMessage(const std::string& text, int style, const std::string& title) override;
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override;

    // The main window, disabled while a message waits. There is none during start-up.
    void setMainWindow(QWidget* window) { mainWindow_ = window; }
    // The configured fixed-pitch font of the message text; empty keeps the default.
    void setFixedFontName(const std::string& family) { fixedFontName_ = family; }
    // Plays the message sound of a style; called just before each message shows itself.
    void setMessageSound(std::function<void(int style)> play) { messageSound_ = std::move(play); }

private:
    QWidget* owner_;
    QPointer<QWidget> mainWindow_;
    std::string fixedFontName_;
    std::function<void(int)> messageSound_;
};

} // namespace vellumar
