// vellumar: the program. It reads no command line of its own.

#include "EventPump_qt.h"
#include "FileOperations.h"
#include "GetSystemFolders.h"
#include "MessageService_qt.h"
#include "ResultText.h"
#include "SystemFolders.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdlib>

int main(int argc, char** argv)
{
    using namespace vellumar;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vellumar"));

    QtMessageService messages;
    const auto systemFolders = CreatePlatformSystemFolders();
    SystemPaths paths;
    if (IsError(GetSystemFolders(*systemFolders, messages, paths)))
        return EXIT_FAILURE;

    if (qEnvironmentVariableIntValue("VELLUMAR_EXIT_WHEN_READY") == 1)
        return EXIT_SUCCESS;

    // Until the main window arrives, the program shows the folders it will work with.
    const QString text =
        QStringLiteral("Vellumar has found its folders. The main window with the texture "
                       "library is not part of this build yet.\n\n") +
        QStringLiteral("Program folder:\n%1\n\nWindows folder:\n%2\n\nDocuments:\n%3\n\n"
                       "Application data:\n%4")
            .arg(QString::fromStdString(systemFolders->programFolder()),
                 QString::fromStdString(paths.WindowsPath),
                 QString::fromStdString(paths.MyDocumentsPath),
                 QString::fromStdString(paths.AppDataPath));
    QMessageBox::information(nullptr, QStringLiteral("Vellumar"), text);
    return EXIT_SUCCESS;
}
