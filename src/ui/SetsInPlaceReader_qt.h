#pragma once

#include "common/TextList.h"
#include "textures/TextureFolders.h"
#include "textures/TextureSetEntry.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

namespace vellumar {

class FileOperations;

// Finds out, away from the window's thread, which sets have every file in the simulator now:
// the first look at a large library reads every file of it. Each reading has file operations
// of its own and leaves the hashes it took in the data folder's hash cache, so the next one
// reads only what changed. A new request makes a reading under way give way to it; only the
// answer to the latest request is passed on.
class SetsInPlaceReader final : public QObject {
    Q_OBJECT

public:
    using FileOperationsFactory = std::function<std::unique_ptr<FileOperations>()>;
    using Answer = std::function<void(const TextList& foldersInPlace)>;

    SetsInPlaceReader(FileOperationsFactory makeFiles, Answer answer, QObject* parent = nullptr);
    ~SetsInPlaceReader() override;
    SetsInPlaceReader(const SetsInPlaceReader&) = delete;
    SetsInPlaceReader& operator=(const SetsInPlaceReader&) = delete;

    void refresh(const TextureFolders& folders, std::vector<TextureSetEntry> sets);
    // A reading is under way or waiting.
    bool busy() const { return running_ || pending_.has_value(); }

private:
    struct Request {
        TextureFolders folders;
        std::vector<TextureSetEntry> sets;
    };

    void startNext();
    void finished(TextList foldersInPlace, bool complete);

    FileOperationsFactory makeFiles_;
    Answer answer_;
    std::optional<Request> pending_;
    bool running_ = false;
    std::thread thread_;
    std::atomic<bool> giveWay_{false};
};

} // namespace vellumar
