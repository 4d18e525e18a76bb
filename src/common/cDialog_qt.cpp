#include "common/cDialog_qt.h"

#include "common/FileDialogText.h"
#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Unattended.h"

#include <QDir>
#include <QFileDialog>

namespace vellumar {

cDialog::cDialog(FileOperations& files, QWidget* owner)
    : files_(files)
    , owner_(owner)
{}

std::string cDialog::startPath() const
{
    const std::string folder =
        IsOK(FolderExists(files_, InitialFolder)) ? InitialFolder : std::string();
    if (folder.empty())
        return DefaultFileName;
    return DefaultFileName.empty() ? folder : JoinPath(folder, DefaultFileName);
}

std::string cDialog::ShowOpen()
{
    if (ExitsWhenReady())
        EndUnattended(Title, "(a file dialog)");
    const QString title = QString::fromStdString(Title);
    const QString start = QString::fromStdString(startPath());
    const QString filter = QString::fromStdString(ToolkitFileFilter(Filter));
    if (!Multiple)
        return QDir::toNativeSeparators(QFileDialog::getOpenFileName(owner_, title, start, filter))
            .toStdString();
    TextList chosen;
    for (const QString& path : QFileDialog::getOpenFileNames(owner_, title, start, filter))
        chosen.push_back(QDir::toNativeSeparators(path).toStdString());
    return MultipleFilesAnswer(chosen);
}

std::string cDialog::ShowSave()
{
    if (ExitsWhenReady())
        EndUnattended(Title, "(a file dialog)");
    return QDir::toNativeSeparators(
               QFileDialog::getSaveFileName(owner_, QString::fromStdString(Title),
                                            QString::fromStdString(startPath()),
                                            QString::fromStdString(ToolkitFileFilter(Filter))))
        .toStdString();
}

} // namespace vellumar
