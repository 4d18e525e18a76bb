#include "common/FolderBrowser_qt.h"

#include "common/Unattended.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace vellumar {

QtFolderBrowser::QtFolderBrowser(QWidget* owner)
    : owner_(owner)
{}

std::string QtFolderBrowser::BrowseForFolder(const std::string& prompt, int /*rootKind*/,
                                             const std::string& initialFolder)
{
    // The prompt becomes the dialog's title, which has a single line.
    QString title = QString::fromStdString(prompt.empty() ? kDefaultFolderPrompt : prompt);
    title.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    title.replace(QLatin1Char('\n'), QLatin1Char(' '));
    title = title.simplified();
    if (ExitsWhenReady())
        EndUnattended(title.toStdString(), "(a folder dialog)");

    // The toolkit's dialog cannot take a special folder as the root of its tree, so every root
    // kind starts where the system's dialog starts without one: on the desktop, unless the
    // caller's folder exists.
    QString start = QString::fromStdString(initialFolder);
    if (start.isEmpty() || !QFileInfo(start).isDir())
        start = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);

    const QString chosen = QFileDialog::getExistingDirectory(
        owner_, title, start, QFileDialog::ShowDirsOnly | QFileDialog::DontResolveSymlinks);
    if (chosen.isEmpty())
        return {};
    return QDir::toNativeSeparators(chosen).toStdString();
}

} // namespace vellumar
