#pragma once

#include "common/MessageLayout.h"
#include "common/widgets/WindowDrag.h"

#include <QDialog>
#include <QPointer>
#include <QString>

#include <functional>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace vellumar {

// The program's own message box. ShowMessage sets text, style and title, shows it modelessly
// and waits until done; the window itself only measures its text, asks MessageLayout where
// everything goes, and records which button was pressed.
class frmMsg final : public QDialog {
    Q_OBJECT

public:
    explicit frmMsg(QWidget* parent = nullptr);
    ~frmMsg() override;

    void setMessageText(const QString& text);
    // Also starts a new answer: the cancel-like result, not done.
    void setMessageStyle(int style);
    void setTitle(const QString& title);

    QString messageText() const { return text_; }
    int messageStyle() const { return style_; }
    int messageResult() const { return answer_.result(); }
    bool isDone() const { return answer_.done(); }

    // What the cmdXY buttons call with their two digits.
    void SetButtonResult(int code);

    // The configured fixed-pitch font for the text (and the window); empty keeps the defaults.
    void setFixedFontName(const QString& family);
    // Called with the style just before the window shows itself: the message sound.
    void setMessageSound(std::function<void(int style)> play);
    // The window to centre on while it is visible; otherwise the window centres on the screen.
    void setCentreOn(QWidget* window);

    void setVisible(bool visible) override;

Q_SIGNALS:
    // A button was pressed or the window was closed: isDone() has turned true.
    void answered();

public Q_SLOTS:
    // Escape and the title bar's close button: the layout's cancel-like answer.
    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Form_Load();
    void Form_Deactivate();
    void ApplyFonts();
    void PlaceWindow();
    QPushButton* ButtonOf(int code) const;

    QString text_;
    int style_ = 0;
    MessageAnswer answer_;
    QString fixedFontName_;
    std::function<void(int)> playSound_;
    QPointer<QWidget> centreOn_;
    // Where the mouse went down on the window, while the window follows it.
    WindowDrag drag_;

    // The skinned title bar: the sky band with the title and a close key.
    QWidget* SkyBand_ = nullptr;
    QLabel* lblTitle_ = nullptr;
    QWidget* cmdTitleClose_ = nullptr;

    QLabel* lblMsg_ = nullptr;
    QPlainTextEdit* txtMsg_ = nullptr;
    QWidget* imgIcon_ = nullptr;
    QPushButton* cmd12_ = nullptr;
    QPushButton* cmd22_ = nullptr;
    QPushButton* cmd13_ = nullptr;
    QPushButton* cmd23_ = nullptr;
    QPushButton* cmd33_ = nullptr;
};

} // namespace vellumar
