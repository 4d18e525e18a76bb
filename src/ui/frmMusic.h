#pragma once

#include "sound/MusicOrder.h"

#include <QDialog>

#include <functional>
#include <string>

class QListWidget;
class QPushButton;

namespace vellumar {

class FileOperations;

// "Music Order": the music list of channel 3, in playing order. Add brings in files (several
// at once; MP3 and M3U playlists first, WAV, MIDI), Remove takes the selected one out, Move
// Up/Down or a drag puts it elsewhere. The window edits the list handed in; OK hands back the
// result, Cancel the list as it was.
class frmMusic final : public QDialog {
    Q_OBJECT

public:
    // Asks which files to add, starting in `folder` ("" for the dialog's own choice), with
    // `filter` ("description|patterns|" pairs); nothing when the user cancels.
    using FileChooser =
        std::function<TextList(const std::string& folder, const std::string& filter)>;

    // `channelFolder`: channel 3's folder, where Add opens when no music was added before.
    frmMusic(FileOperations& files, MusicOrder order, std::string channelFolder,
             QWidget* parent = nullptr);

    // The file dialog by default.
    void setFileChooser(FileChooser chooser) { chooser_ = std::move(chooser); }

    // The list and folder as OK left them; after Cancel, as they were handed in.
    const MusicOrder& order() const { return order_; }

    // Cancel, Escape and the close box: the list as it was handed in.
    void reject() override;

private:
    void cmdAdd_Click();
    void cmdRemove_Click();
    void MoveSelected(int by);
    void lstMusic_Moved();
    void cmdOK_Click();
    void ShowList(int selectRow);
    void ShowButtons();

    FileOperations& files_;
    const MusicOrder original_;
    MusicOrder order_;
    std::string channelFolder_;
    FileChooser chooser_;

    QListWidget* lstMusic_ = nullptr;
    QPushButton* cmdAdd_ = nullptr;
    QPushButton* cmdRemove_ = nullptr;
    QPushButton* cmdUp_ = nullptr;
    QPushButton* cmdDown_ = nullptr;
    QPushButton* cmdOK_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
};

} // namespace vellumar
