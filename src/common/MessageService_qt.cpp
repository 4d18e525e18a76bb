#include "common/MessageService_qt.h"

#include "common/Unattended.h"
#include "common/frmMsg.h"

#include <QEventLoop>
#include <QMessageBox>
#include <QPushButton>

#include <vector>

namespace vellumar {

namespace {

struct ButtonChoice {
    QMessageBox::StandardButton button;
    int result;
};

std::vector<ButtonChoice> ButtonsOf(int style)
{
    using SB = QMessageBox::StandardButton;
    switch (style & MessageStyle::ButtonsMask) {
    case MessageStyle::OKCancel:
        return {{SB::Ok, MessageResult::OK}, {SB::Cancel, MessageResult::Cancel}};
    case MessageStyle::AbortRetryIgnore:
        return {{SB::Abort, MessageResult::Abort},
                {SB::Retry, MessageResult::Retry},
                {SB::Ignore, MessageResult::Ignore}};
    case MessageStyle::YesNoCancel:
        return {{SB::Yes, MessageResult::Yes},
                {SB::No, MessageResult::No},
                {SB::Cancel, MessageResult::Cancel}};
    case MessageStyle::YesNo:
        return {{SB::Yes, MessageResult::Yes}, {SB::No, MessageResult::No}};
    case MessageStyle::RetryCancel:
        return {{SB::Retry, MessageResult::Retry}, {SB::Cancel, MessageResult::Cancel}};
    default:
        return {{SB::Ok, MessageResult::OK}};
    }
}

QMessageBox::Icon SystemIconOf(int style)
{
    switch (style & MessageStyle::IconMask) {
    case MessageStyle::Critical:
        return QMessageBox::Critical;
    case MessageStyle::Question:
        return QMessageBox::Question;
    case MessageStyle::Exclamation:
        return QMessageBox::Warning;
    case MessageStyle::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

} // namespace

QtMessageService::QtMessageService(QWidget* owner)
    : owner_(owner)
{}

int QtMessageService::ShowMessage(const std::string& text, int style, const std::string& title)
{
    if (ExitsWhenReady())
        EndUnattended(title, text);
    // The main window stays disabled while the message waits, so no second message can start
    // from it; timers and other windows keep running.
    const QPointer<QWidget> mainWindow = mainWindow_;
    const bool mainWasEnabled = mainWindow && mainWindow->isEnabled();
    if (mainWindow)
        mainWindow->setEnabled(false);

    int result = 0;
    {
        frmMsg window;
        window.setFixedFontName(QString::fromStdString(fixedFontName_));
        window.setMessageSound(messageSound_);
        window.setCentreOn(mainWindow);
        window.setMessageText(QString::fromStdString(text));
        window.setMessageStyle(style);
        window.setTitle(QString::fromStdString(title));

        QEventLoop wait;
        QObject::connect(&window, &frmMsg::answered, &wait, &QEventLoop::quit);
        window.show();
        // The sound hook or a quick hand may already have answered.
        if (!window.isDone())
            wait.exec();
        result = window.messageResult();
        window.hide();
    }

    if (mainWindow) {
        mainWindow->setEnabled(mainWasEnabled);
        // A main window hidden to the tray stays hidden.
        if (mainWasEnabled && mainWindow->isVisible())
            mainWindow->activateWindow();
    }
    return result;
}

int QtMessageService::ShowSystemMessage(const std::string& text, int style,
                                        const std::string& title)
{
    if (ExitsWhenReady())
        EndUnattended(title, text);
    QMessageBox box(SystemIconOf(style), QString::fromStdString(title),
                    QString::fromStdString(text), QMessageBox::NoButton, owner_);
    const std::vector<ButtonChoice> buttons = ButtonsOf(style);
    for (const ButtonChoice& choice : buttons)
        box.addButton(choice.button);
    const int defaultResult = DefaultAnswer(style);
    for (const ButtonChoice& choice : buttons)
        if (choice.result == defaultResult)
            box.setDefaultButton(choice.button);
    const auto pressed = static_cast<QMessageBox::StandardButton>(box.exec());
    for (const ButtonChoice& choice : buttons)
        if (choice.button == pressed)
            return choice.result;
    // Closed without a button: the answer of Escape, the last button of the set.
    return buttons.back().result;
}

} // namespace vellumar
