// BrowseForFolder with the toolkit's dialog, answered by the test as a user would.

#include "common/FolderBrowser_qt.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QTest>
#include <QTimer>

#include <functional>

namespace vellumar {

class FolderBrowserTest final : public QObject {
    Q_OBJECT

    // Runs `answer` on the dialog once it is open, then lets BrowseForFolder return.
    static std::string Browse(const std::string& prompt, const std::string& initial,
                              std::function<void(QFileDialog&)> answer)
    {
        QTimer::singleShot(0, [answer] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog) {
                qWarning("no folder dialog is open");
                return;
            }
            answer(*dialog);
        });
        QtFolderBrowser browser;
        return browser.BrowseForFolder(prompt, 0, initial);
    }

private Q_SLOTS:
    void theChosenFolderComesBackWithNativeSeparators()
    {
        test::TempFolder temp;
        const std::string start = temp.makeFolder("Start");
        const std::string chosen = temp.makeFolder("Flight Simulator 9");
        QString title;
        QString openedOn;
        const std::string answer =
            Browse("Vellumar can't get FS2004 Path.\nPlease select FS2004 Path.", start,
                   [&](QFileDialog& dialog) {
                       title = dialog.windowTitle();
                       openedOn = QDir(dialog.directory()).absolutePath();
                       dialog.setDirectory(QString::fromStdString(chosen));
                       dialog.selectFile(QString::fromStdString(chosen));
                       static_cast<QDialog&>(dialog).accept();
                   });
        // A title bar has one line.
        QCOMPARE(title,
                 QStringLiteral("Vellumar can't get FS2004 Path. Please select FS2004 Path."));
        QCOMPARE(openedOn, QDir(QString::fromStdString(start)).absolutePath());
        QCOMPARE(QString::fromStdString(answer),
                 QDir::toNativeSeparators(QDir(QString::fromStdString(chosen)).absolutePath()));
    }

    void anEmptyPromptGetsTheDefaultAndCancellingGivesNothing()
    {
        QString title;
        const std::string answer = Browse("", "/no/such/folder", [&](QFileDialog& dialog) {
            title = dialog.windowTitle();
            dialog.reject();
        });
        QCOMPARE(title, QString::fromUtf8(kDefaultFolderPrompt));
        QVERIFY(answer.empty());
    }
};

} // namespace vellumar

QTEST_MAIN(vellumar::FolderBrowserTest)
#include "FolderBrowserTest_qt.moc"
