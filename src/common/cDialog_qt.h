#pragma once

#include <string>

class QWidget;

namespace vellumar {

class FileOperations;

// The file-open (and save) dialog. The answer is the chosen path; with `multiple`, the folder
// and the chosen names separated by NUL (split with cSplit); "" when the user cancels.
class cDialog {
public:
    cDialog(FileOperations& files, QWidget* owner);

    std::string Title;
    std::string Filter;        // "description|patterns|..." pairs
    std::string InitialFolder; // used only when it exists
    std::string DefaultFileName;
    bool Multiple = false;

    std::string ShowOpen();
    std::string ShowSave();

private:
    std::string startPath() const;

    FileOperations& files_;
    QWidget* owner_;
};

} // namespace vellumar
