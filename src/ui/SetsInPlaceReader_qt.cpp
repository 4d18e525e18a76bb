#include "ui/SetsInPlaceReader_qt.h"

#include "common/EventPump.h"
#include "common/FileOperations.h"
#include "common/HashCache.h"
#include "textures/InstalledStatus.h"

namespace vellumar {

namespace {

// The reading runs on a thread without windows: there are no events to let through.
class NoEvents final : public EventPump {
public:
    void DoEvents() override {}
};

} // namespace

SetsInPlaceReader::SetsInPlaceReader(FileOperationsFactory makeFiles, Answer answer,
                                     QObject* parent)
    : QObject(parent)
    , makeFiles_(std::move(makeFiles))
    , answer_(std::move(answer))
{}

SetsInPlaceReader::~SetsInPlaceReader()
{
    // The reading stops at its next file; an answer on its way to this object is dropped with it.
    giveWay_ = true;
    if (thread_.joinable())
        thread_.join();
}

void SetsInPlaceReader::refresh(const TextureFolders& folders, std::vector<TextureSetEntry> sets)
{
    if (folders.FsPath.empty()) { // no simulator: nothing can be in place
        pending_.reset();
        giveWay_ = running_;
        if (answer_)
            answer_({});
        return;
    }
    pending_ = Request{folders, std::move(sets)};
    if (running_)
        giveWay_ = true;
    else
        startNext();
}

void SetsInPlaceReader::startNext()
{
    if (thread_.joinable())
        thread_.join();
    Request request = std::move(*pending_);
    pending_.reset();
    running_ = true;
    giveWay_ = false;
    thread_ = std::thread([this, request = std::move(request)] {
        const std::unique_ptr<FileOperations> files = makeFiles_();
        NoEvents events;
        HashCache hashes(*files, HashCache::PathIn(request.folders.DataFolder));
        const auto keepGoing = [this] { return !giveWay_.load(); };
        const InstalledStatus status = ReadInstalledStatus(
            *files, events, request.folders, request.sets, hashes, nullptr, keepGoing);
        const bool complete = keepGoing();
        // A partial reading would leave out of the cache what it did not get to.
        if (complete)
            hashes.save();
        TextList inPlace = FoldersOfSetsInPlace(status, request.sets);
        QMetaObject::invokeMethod(
            this,
            [this, inPlace = std::move(inPlace), complete]() mutable {
                finished(std::move(inPlace), complete);
            },
            Qt::QueuedConnection);
    });
}

void SetsInPlaceReader::finished(TextList foldersInPlace, bool complete)
{
    running_ = false;
    if (pending_) {
        startNext();
        return;
    }
    if (thread_.joinable())
        thread_.join();
    if (complete && answer_)
        answer_(foldersInPlace);
}

} // namespace vellumar
