#pragma once

#include "common/FolderBrowser.h"

#include <QPointer>
#include <QWidget>

namespace vellumar {

// BrowseForFolder with the toolkit's folder dialog.
class QtFolderBrowser final : public FolderBrowser {
public:
    explicit QtFolderBrowser(QWidget* owner = nullptr);

    std::string BrowseForFolder(const std::string& prompt, int rootKind,
                                const std::string& initialFolder) override;

    // The window the dialog belongs to; the main window once it exists.
    void setOwner(QWidget* owner) { owner_ = owner; }

private:
    QPointer<QWidget> owner_;
};

} // namespace vellumar
