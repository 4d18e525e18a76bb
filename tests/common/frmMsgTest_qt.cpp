#include "common/MessageService.h"
#include "common/MessageService_qt.h"
#include "common/frmMsg.h"

#include <QApplication>
#include <QFontDatabase>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>

using namespace vellumar;

namespace {

const QString kTitle = QStringLiteral("Vellumar test");

frmMsg* OpenMessage()
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = qobject_cast<frmMsg*>(widget); window && window->isVisible())
            return window;
    return nullptr;
}

template <typename T = QWidget>
T* Control(const QWidget& window, const char* name)
{
    return window.findChild<T*>(QString::fromLatin1(name));
}

QStringList VisibleButtonCaptions(const QWidget& window)
{
    // Left to right, as the user reads them.
    QList<QPushButton*> visible;
    for (QPushButton* button : window.findChildren<QPushButton*>())
        if (button->isVisible())
            visible.append(button);
    std::sort(visible.begin(), visible.end(),
              [](QPushButton* a, QPushButton* b) { return a->x() < b->x(); });
    QStringList captions;
    for (QPushButton* button : visible)
        captions.append(button->objectName() + QLatin1Char('=') + button->text());
    return captions;
}

// Shows a message through the service and lets `act` answer it once the service waits. If
// `act` does not answer, the window is closed after a while so that a broken test fails
// instead of hanging.
int ShowAndAct(QtMessageService& service, const QString& text, int style,
               const std::function<void(frmMsg&)>& act, bool* acted = nullptr)
{
    QTimer::singleShot(0, qApp, [act, acted] {
        if (frmMsg* window = OpenMessage()) {
            if (acted)
                *acted = true;
            act(*window);
        }
    });
    QTimer rescue;
    rescue.setSingleShot(true);
    QObject::connect(&rescue, &QTimer::timeout, qApp, [] {
        if (frmMsg* window = OpenMessage())
            window->close();
    });
    rescue.start(10000);
    return service.ShowMessage(text.toStdString(), style, kTitle.toStdString());
}

// The window's own title bar, the sky band at its top; the message's room starts below it.
int TitleBarHeight(const QWidget& window)
{
    const QWidget* band = window.findChild<QWidget*>(QStringLiteral("SkyBand"));
    return band ? band->geometry().bottom() + 1 : 0;
}

// The hue a picture is mostly painted in, ignoring the background and white or dark glyphs.
int MainHue(const QImage& picture)
{
    int counts[36] = {};
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            if (colour.alpha() > 200 && colour.hsvSaturation() > 120 && colour.value() > 100)
                ++counts[colour.hsvHue() / 10];
        }
    return int(std::max_element(std::begin(counts), std::end(counts)) - std::begin(counts)) * 10;
}

// Counts the times a window became the active one.
class ActivationSpy final : public QObject {
public:
    explicit ActivationSpy(QWidget* window) { window->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::WindowActivate)
            ++count;
        return false;
    }
};

} // namespace

class frmMsgTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTRY_VERIFY(OpenMessage() == nullptr); }

    void captionsPerStyle_data();
    void captionsPerStyle();
    void eachButtonAnswers_data();
    void eachButtonAnswers();
    void mnemonicKeysPressTheirButton_data();
    void mnemonicKeysPressTheirButton();
    void closingWithoutAButtonGivesTheCancelLikeAnswer();
    void defaultButtonHasTheFocus_data();
    void defaultButtonHasTheFocus();
    void wideTextWrapsInsideTheMaximumWidth();
    void tallTextScrollsInTheTextBox();
    void iconFollowsTheStyle();
    void fontsDefaultAndConfigured();
    void messageSoundPlaysBeforeTheWindowShows();
    void deactivationTakesTheFocusBack();
    void mainWindowDisabledWhileWaitingAndFocusedAfter();
    void hiddenOrDisabledMainWindowIsNeitherShownNorActivated();
    void layoutsFit();
};

void frmMsgTest::captionsPerStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QStringList>("captions");
    const QStringList ok{QStringLiteral("cmd23=OK(&O)")};
    const QStringList okCancel{QStringLiteral("cmd12=OK(&O)"), QStringLiteral("cmd22=Cancel(&C)")};
    const QStringList yesNo{QStringLiteral("cmd12=Yes(&Y)"), QStringLiteral("cmd22=No(&N)")};
    const QStringList yesNoCancel{QStringLiteral("cmd13=Yes(&Y)"), QStringLiteral("cmd23=No(&N)"),
                                  QStringLiteral("cmd33=Cancel(&C)")};
    QTest::newRow("0") << 0 << ok;
    QTest::newRow("2 is OK too") << 2 << ok;
    QTest::newRow("1") << 1 << okCancel;
    QTest::newRow("3") << 3 << yesNoCancel;
    QTest::newRow("4") << 4 << yesNo;
    QTest::newRow("5 is Yes/No") << 5 << yesNo;
    QTest::newRow("52") << 52 << yesNo;
    QTest::newRow("3 + 48 + 256") << 3 + 48 + 256 << yesNoCancel;
}

void frmMsgTest::captionsPerStyle()
{
    QFETCH(int, style);
    QFETCH(QStringList, captions);
    frmMsg window;
    window.setMessageText(QStringLiteral("Install the texture set?"));
    window.setMessageStyle(style);
    window.setTitle(kTitle);
    window.show();
    QCOMPARE(VisibleButtonCaptions(window), captions);
    QCOMPARE(window.windowTitle(), kTitle);
    QCOMPARE(Control<QLabel>(window, "lblMsg")->text(), QStringLiteral("Install the texture set?"));
}

void frmMsgTest::eachButtonAnswers_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    // Every button of every layout; the OK layout's one button answers in the other tests.
    QTest::newRow("1 OK") << 1 << QStringLiteral("cmd12") << MessageResult::OK;
    QTest::newRow("1 Cancel") << 1 << QStringLiteral("cmd22") << MessageResult::Cancel;
    QTest::newRow("3 Yes") << 3 << QStringLiteral("cmd13") << MessageResult::Yes;
    QTest::newRow("3 No") << 3 << QStringLiteral("cmd23") << MessageResult::No;
    QTest::newRow("3 Cancel") << 3 << QStringLiteral("cmd33") << MessageResult::Cancel;
    QTest::newRow("4 Yes") << 4 << QStringLiteral("cmd12") << MessageResult::Yes;
    QTest::newRow("5 No") << 5 << QStringLiteral("cmd22") << MessageResult::No;
}

void frmMsgTest::eachButtonAnswers()
{
    QFETCH(int, style);
    QFETCH(QString, button);
    QFETCH(int, result);
    QtMessageService service;
    bool acted = false;
    const int answer = ShowAndAct(
        service, QStringLiteral("Texture set from above will be installed."), style,
        [button](frmMsg& window) {
            auto* pressed = window.findChild<QPushButton*>(button);
            QVERIFY(pressed && pressed->isVisible());
            QVERIFY(!window.isDone());
            QTest::mouseClick(pressed, Qt::LeftButton);
        },
        &acted);
    QVERIFY(acted);
    QCOMPARE(answer, result);
    QVERIFY(OpenMessage() == nullptr); // the service closed the window
}

void frmMsgTest::mnemonicKeysPressTheirButton_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");
    QTest::newRow("Alt+O alone") << 0 << int(Qt::Key_O) << MessageResult::OK;
    QTest::newRow("Alt+N of two") << 4 << int(Qt::Key_N) << MessageResult::No;
    QTest::newRow("Alt+Y of three") << 3 << int(Qt::Key_Y) << MessageResult::Yes;
    QTest::newRow("Alt+C of three") << 3 << int(Qt::Key_C) << MessageResult::Cancel;
}

void frmMsgTest::mnemonicKeysPressTheirButton()
{
    QFETCH(int, style);
    QFETCH(int, key);
    QFETCH(int, result);
    QtMessageService service;
    const int answer = ShowAndAct(service, QStringLiteral("Try to backup these files again?"),
                                  style, [key](frmMsg& window) {
                                      window.activateWindow();
                                      QVERIFY(QTest::qWaitForWindowActive(&window));
                                      QTest::keyClick(&window, Qt::Key(key), Qt::AltModifier);
                                  });
    QCOMPARE(answer, result);
}

void frmMsgTest::closingWithoutAButtonGivesTheCancelLikeAnswer()
{
    QtMessageService service;
    const auto close = [](frmMsg& window) { window.close(); };
    QCOMPARE(ShowAndAct(service, QStringLiteral("Closed."), 0, close), MessageResult::Cancel);
    QCOMPARE(ShowAndAct(service, QStringLiteral("Closed."), 4, close), MessageResult::No);
    // The close key of the window's own title bar does the same.
    const auto closeKey = [](frmMsg& window) {
        QTest::mouseClick(Control(window, "cmdTitleClose"), Qt::LeftButton);
    };
    QCOMPARE(ShowAndAct(service, QStringLiteral("Closed."), 3, closeKey), MessageResult::Cancel);

    // Escape closes it the same way.
    const auto escape = [](frmMsg& window) {
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    };
    QCOMPARE(ShowAndAct(service, QStringLiteral("Escaped."), 4 + 256, escape), MessageResult::No);
    QCOMPARE(ShowAndAct(service, QStringLiteral("Escaped."), 3 + 512, escape),
             MessageResult::Cancel);
}

void frmMsgTest::defaultButtonHasTheFocus_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("focused");
    QTest::addColumn<int>("enterResult");
    QTest::newRow("0 + 256, one button") << 0 + 256 << QStringLiteral("cmd23") << MessageResult::OK;
    QTest::newRow("1 + 256") << 1 + 256 << QStringLiteral("cmd22") << MessageResult::Cancel;
    QTest::newRow("1 + 512, no third") << 1 + 512 << QStringLiteral("cmd12") << MessageResult::OK;
    QTest::newRow("3") << 3 << QStringLiteral("cmd13") << MessageResult::Yes;
    QTest::newRow("3 + 256") << 3 + 256 << QStringLiteral("cmd23") << MessageResult::No;
    QTest::newRow("3 + 512") << 3 + 512 << QStringLiteral("cmd33") << MessageResult::Cancel;
}

void frmMsgTest::defaultButtonHasTheFocus()
{
    QFETCH(int, style);
    QFETCH(QString, focused);
    QFETCH(int, enterResult);
    QtMessageService service;
    QString hadFocus;
    const int answer = ShowAndAct(service, QStringLiteral("Replace the splash picture?"), style,
                                  [&hadFocus](frmMsg& window) {
                                      window.activateWindow();
                                      QVERIFY(QTest::qWaitForWindowActive(&window));
                                      QVERIFY(window.focusWidget());
                                      hadFocus = window.focusWidget()->objectName();
                                      // Enter presses the button that has the focus.
                                      QTest::keyClick(window.focusWidget(), Qt::Key_Return);
                                  });
    QCOMPARE(hadFocus, focused);
    QCOMPARE(answer, enterResult);
}

void frmMsgTest::wideTextWrapsInsideTheMaximumWidth()
{
    // A sentence, and a folder path with no space to break at.
    const QStringList texts{
        QStringLiteral("The texture set could not be installed, because one of the simulator's "
                       "files is read-only or is being used by another program right now."),
        QStringLiteral("Can't find C:\\Program_Files\\Microsoft_Games\\Flight_Simulator_9\\"
                       "Texture\\Clouds\\Cumulus_Summer_Evening_With_Thunderstorms_Over_The_"
                       "Mountains_And_A_Very_Long_Folder_Name\\cumulus_3.bmp")};
    for (const QString& text : texts) {
        frmMsg window;
        window.setMessageText(text);
        window.setMessageStyle(48);
        window.show();
        QCOMPARE(window.width(), 490);
        auto* label = Control<QLabel>(window, "lblMsg");
        QVERIFY(label->wordWrap());
        QVERIFY(label->isVisible());
        QVERIFY(label->geometry().right() < window.width());
        QVERIFY2(label->height() >= 2 * label->fontMetrics().height(), qPrintable(text));
        const QWidget* button = Control(window, "cmd23");
        QVERIFY(button->y() > label->geometry().bottom());
        QVERIFY(window.height() - TitleBarHeight(window) < 260);

        // The label holds the whole text: as many lines as its width needs, so no word ran
        // out of it on a line of its own.
        const QFontMetrics metrics = label->fontMetrics();
        const int lines = (metrics.horizontalAdvance(text) + label->width() - 1) / label->width();
        QVERIFY2(label->height() >= lines * metrics.height(), qPrintable(text));
    }
}

void frmMsgTest::tallTextScrollsInTheTextBox()
{
    QString text =
        QStringLiteral("*** Cumulus Summer ***\n\nFollowing backup files are not found.\n"
                       "Try to backup these files again?\n");
    for (int i = 1; i <= 30; ++i)
        text += QStringLiteral("cloud%1.bmp\n").arg(i);
    frmMsg window;
    window.setMessageText(text);
    window.setMessageStyle(52);
    window.show();
    auto* box = Control<QPlainTextEdit>(window, "txtMsg");
    QVERIFY(box->isVisible());
    QVERIFY(!Control(window, "lblMsg")->isVisible());
    QCOMPARE(box->toPlainText(), text);
    QVERIFY(box->isReadOnly());
    QCOMPARE(window.height() - TitleBarHeight(window), 260);
    QVERIFY(box->verticalScrollBar()->maximum() > 0); // the text really scrolls
    for (const char* name : {"cmd12", "cmd22"}) {
        const QWidget* button = Control(window, name);
        QVERIFY(button->y() > box->geometry().bottom());
        QVERIFY(button->geometry().bottom() < window.height());
    }

    // Text that fits keeps the label.
    frmMsg small;
    small.setMessageText(QStringLiteral("one\ntwo\nthree"));
    small.setMessageStyle(52);
    small.show();
    QVERIFY(!Control(small, "txtMsg")->isVisible());
    QVERIFY(Control(small, "lblMsg")->isVisible());
}

void frmMsgTest::iconFollowsTheStyle()
{
    const auto iconOf = [](int style) {
        auto window = std::make_unique<frmMsg>();
        window->setMessageText(QStringLiteral("Icon"));
        window->setMessageStyle(style);
        window->show();
        QWidget* icon = Control(*window, "imgIcon");
        return std::make_pair(icon->isVisible(),
                              icon->isVisible() ? icon->grab().toImage() : QImage());
    };
    QVERIFY(!iconOf(0).first);
    QVERIFY(!iconOf(3 + 256).first);
    const auto critical = iconOf(16);
    const auto question = iconOf(32);
    const auto exclamation = iconOf(48);
    const auto information = iconOf(64);
    for (const auto& icon : {critical, question, exclamation, information})
        QVERIFY(icon.first);
    // Red, amber, and blue for both questions and information.
    QVERIFY(MainHue(critical.second) < 20 || MainHue(critical.second) >= 340);
    QVERIFY(MainHue(exclamation.second) >= 30 && MainHue(exclamation.second) < 60);
    QVERIFY(MainHue(question.second) >= 200 && MainHue(question.second) < 230);
    QVERIFY(MainHue(information.second) >= 200 && MainHue(information.second) < 230);
    QVERIFY(question.second != information.second);
    // 48 holds the bit of 16, but shows the exclamation icon; 80 holds 16 and 64: critical.
    QCOMPARE(iconOf(80).second, critical.second);
    QCOMPARE(iconOf(48 + 64).second, exclamation.second);
}

void frmMsgTest::fontsDefaultAndConfigured()
{
    // Whatever fonts this system has: the text asks for Courier New and, where that would come
    // out proportional, for the system's fixed-pitch face, so columns of names line up.
    frmMsg plain;
    plain.setMessageText(QStringLiteral("Fonts"));
    plain.show();
    auto* label = Control<QLabel>(plain, "lblMsg");
    const QString fixedFamily = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    QVERIFY2(label->font().family() == QStringLiteral("Courier New") ||
                 label->font().family() == fixedFamily,
             qPrintable(label->font().family()));
    QCOMPARE(Control<QPlainTextEdit>(plain, "txtMsg")->font(), label->font());
    QCOMPARE(plain.font().family(), QStringLiteral("Arial"));

    // A configured name is taken as it is, installed or not: the font system finds the nearest.
    const QString configured = QStringLiteral("Vellumar Test Mono");
    frmMsg fixed;
    fixed.setFixedFontName(configured);
    fixed.setMessageText(QStringLiteral("Fonts"));
    fixed.show();
    QCOMPARE(Control<QLabel>(fixed, "lblMsg")->font().family(), configured);
    QCOMPARE(Control<QPlainTextEdit>(fixed, "txtMsg")->font().family(), configured);
    QCOMPARE(fixed.font().family(), configured);

    // An empty name keeps the defaults.
    frmMsg empty;
    empty.setFixedFontName(QString());
    empty.setMessageText(QStringLiteral("Fonts"));
    empty.show();
    QCOMPARE(Control<QLabel>(empty, "lblMsg")->font(), label->font());
}

void frmMsgTest::messageSoundPlaysBeforeTheWindowShows()
{
    QtMessageService service;
    QList<int> played;
    bool visibleWhilePlaying = true;
    service.setMessageSound([&](int style) {
        played.append(style);
        visibleWhilePlaying = OpenMessage() != nullptr;
    });
    ShowAndAct(service, QStringLiteral("Sound"), 48 + 1,
               [](frmMsg& window) { Control<QPushButton>(window, "cmd12")->click(); });
    QCOMPARE(played, QList<int>{48 + 1});
    QVERIFY(!visibleWhilePlaying);

    // Without a sound the message works all the same.
    QtMessageService silent;
    QCOMPARE(ShowAndAct(silent, QStringLiteral("Quiet"), 4,
                        [](frmMsg& window) { Control<QPushButton>(window, "cmd12")->click(); }),
             MessageResult::Yes);
}

void frmMsgTest::deactivationTakesTheFocusBack()
{
    QWidget other;
    other.setWindowTitle(QStringLiteral("Sound window"));
    other.resize(200, 100);
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));

    frmMsg window;
    window.setMessageText(QStringLiteral("Stay with me."));
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    ActivationSpy otherActivated(&other);
    other.activateWindow();
    QTRY_VERIFY(otherActivated.count > 0);
    QTRY_VERIFY(window.isActiveWindow());

    // Once answered, it lets go.
    window.SetButtonResult(MessageButtonCode::cmd23);
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QTest::qWait(50);
    QVERIFY(other.isActiveWindow());
}

void frmMsgTest::mainWindowDisabledWhileWaitingAndFocusedAfter()
{
    QWidget main;
    main.resize(400, 300);
    main.show();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    QtMessageService service;
    service.setMainWindow(&main);

    bool disabledWhileWaiting = false;
    bool messageActive = false;
    const int answer = ShowAndAct(service, QStringLiteral("Wait"), 4, [&](frmMsg& window) {
        disabledWhileWaiting = !main.isEnabled();
        messageActive = QTest::qWaitForWindowActive(&window);
        QTest::mouseClick(Control<QPushButton>(window, "cmd12"), Qt::LeftButton);
    });
    QCOMPARE(answer, MessageResult::Yes);
    QVERIFY(disabledWhileWaiting);
    QVERIFY(messageActive);
    QVERIFY(main.isEnabled());
    QVERIFY(QTest::qWaitForWindowActive(&main));

    // The main window went away while the message waited: nothing to restore, no crash.
    auto* gone = new QWidget;
    gone->show();
    service.setMainWindow(gone);
    QCOMPARE(ShowAndAct(service, QStringLiteral("Gone"), 0,
                        [gone](frmMsg& window) {
                            delete gone;
                            Control<QPushButton>(window, "cmd23")->click();
                        }),
             MessageResult::OK);
}

void frmMsgTest::hiddenOrDisabledMainWindowIsNeitherShownNorActivated()
{
    // Hidden to the tray: enabled again afterwards, but neither shown nor activated. Disabled
    // before the message (the program was busy): it stays so, and unfocused.
    for (const bool hidden : {true, false}) {
        QWidget other;
        other.show();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QWidget main;
        main.show();
        QVERIFY(QTest::qWaitForWindowExposed(&main));
        if (hidden)
            main.hide();
        else
            main.setEnabled(false);
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QtMessageService service;
        service.setMainWindow(&main);
        bool disabledWhileWaiting = false;
        ShowAndAct(service, QStringLiteral("Tray"), 0, [&](frmMsg& window) {
            disabledWhileWaiting = !main.isEnabled();
            Control<QPushButton>(window, "cmd23")->click();
        });
        QVERIFY(disabledWhileWaiting);
        QCOMPARE(main.isEnabled(), hidden);
        QCOMPARE(main.isVisible(), !hidden);
        QTest::qWait(50);
        QVERIFY(QApplication::activeWindow() != &main);
    }
}

// The four kinds of window with real fonts: nothing overlaps, nothing leaves the panel below
// the title bar. (docs/screenshots shows them: tools/ScreenshotTour.cpp takes the pictures.)
void frmMsgTest::layoutsFit()
{
    QString list;
    for (int i = 1; i <= 15; ++i)
        list += QStringLiteral("\ncloud%1.bmp").arg(i);
    const struct {
        QString text;
        int style;
    } messages[] = {
        {QStringLiteral("ATTRIBUTE changing Error of CLOUD.ini.\n"
                        "Is CLOUD.ini used another application ?"),
         48},
        {QStringLiteral("*** Cumulus Summer ***\n\nTexture set from above will be installed."), 65},
        {QStringLiteral("The AutoRandom order has changed.\nKeep the new order?"), 3 + 32},
        {QStringLiteral("Following backup files are not found.") + list, 52},
    };
    for (const auto& message : messages) {
        frmMsg window;
        window.setTitle(kTitle);
        window.setMessageText(message.text);
        window.setMessageStyle(message.style);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(Control<QLabel>(window, "lblTitle")->text(), kTitle);
        const QRect inside = window.rect().adjusted(4, TitleBarHeight(window) + 4, -4, -4);
        QList<QWidget*> shown;
        for (QWidget* child : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (!child->isVisible() || child->objectName() == QStringLiteral("SkyBand"))
                continue;
            QVERIFY2(inside.contains(child->geometry()), qPrintable(child->objectName()));
            for (QWidget* earlier : shown)
                QVERIFY2(
                    !earlier->geometry().intersects(child->geometry()),
                    qPrintable(earlier->objectName() + QLatin1Char(' ') + child->objectName()));
            shown.append(child);
        }
    }
}

QTEST_MAIN(frmMsgTest)
#include "frmMsgTest_qt.moc"
