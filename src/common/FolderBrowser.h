#pragma once

#include <string>

namespace vellumar {

// Asks the user for a folder.
class FolderBrowser {
public:
    virtual ~FolderBrowser() = default;

    // The chosen folder, or "" when the user cancels. An empty prompt gets the default one;
    // `rootKind` picks one of the system's special folders as the root of the tree (any other
    // value: the desktop); the browser opens on `initialFolder` when it exists.
    virtual std::string BrowseForFolder(const std::string& prompt, int rootKind,
                                        const std::string& initialFolder) = 0;
};

// The prompt used when the caller gives none.
inline constexpr const char* kDefaultFolderPrompt = "フォルダを選択してください";

} // namespace vellumar
