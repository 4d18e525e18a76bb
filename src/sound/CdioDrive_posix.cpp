#include "sound/CdioDrive.h"

#include <cdio/cdio.h>
#include <cdio/logging.h>
#include <cstdlib>
#include <optional>
#include <sys/stat.h>
#include <tuple>

namespace vellumar {

namespace {

// libcdio's own log handler ends the process on an error, such as a sheet that is no CUE
// sheet; here a broken image is simply a drive without a disc, so its messages are dropped.
void IgnoreCdioMessage(cdio_log_level_t, const char*) {}

void QuietenCdio()
{
    cdio_loglevel_default = CDIO_LOG_ERROR;
    cdio_log_set_handler(&IgnoreCdioMessage);
}

bool EndsWithIgnoreCase(const std::string& text, const std::string& end)
{
    if (text.size() < end.size())
        return false;
    for (std::size_t i = 0; i < end.size(); ++i) {
        char c = text[text.size() - end.size() + i];
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        if (c != end[i])
            return false;
    }
    return true;
}

// Who a file is, as far as telling a changed image goes.
struct FileIdentity {
    bool exists = false;
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    time_t modified = 0;
    long modifiedNanoseconds = 0;

    static FileIdentity Of(const std::string& path)
    {
        FileIdentity identity;
        struct stat facts {};
        if (::stat(path.c_str(), &facts) != 0)
            return identity;
        identity.exists = true;
        identity.device = facts.st_dev;
        identity.inode = facts.st_ino;
        identity.size = facts.st_size;
        identity.modified = facts.st_mtim.tv_sec;
        identity.modifiedNanoseconds = facts.st_mtim.tv_nsec;
        return identity;
    }
    bool operator==(const FileIdentity&) const = default;
};

// The table of contents libcdio reads; nothing when there is no disc, or a table that makes no
// sense (a broken image is a drive without a disc, not a crash).
std::optional<CdDisc> ReadContents(CdIo_t* cdio)
{
    const track_t first = cdio_get_first_track_num(cdio);
    const track_t count = cdio_get_num_tracks(cdio);
    if (first == CDIO_INVALID_TRACK || count == CDIO_INVALID_TRACK || count == 0)
        return std::nullopt;
    CdDisc disc;
    for (track_t number = first; number < first + count; ++number) {
        CdDisc::Track track;
        track.firstSector = cdio_get_track_lsn(cdio, number);
        track.sectorCount = static_cast<std::int32_t>(cdio_get_track_sec_count(cdio, number));
        track.audio = cdio_get_track_format(cdio, number) == TRACK_FORMAT_AUDIO;
        if (track.firstSector == CDIO_INVALID_LSN || track.firstSector < 0 ||
            track.sectorCount <= 0)
            return std::nullopt;
        if (!disc.tracks.empty() &&
            track.firstSector < disc.tracks.back().firstSector + disc.tracks.back().sectorCount)
            return std::nullopt;
        disc.tracks.push_back(track);
    }
    const lsn_t end = cdio_get_disc_last_lsn(cdio);
    const CdDisc::Track& last = disc.tracks.back();
    disc.endSector = last.firstSector + last.sectorCount;
    if (end != CDIO_INVALID_LSN && end > disc.endSector)
        disc.endSector = end;
    return disc;
}

class CdioDrive final : public CdDrive {
public:
    explicit CdioDrive(std::string path)
        : path_(std::move(path))
    {
        QuietenCdio();
        struct stat facts {};
        image_ = ::stat(path_.c_str(), &facts) != 0 ||
                 !(S_ISBLK(facts.st_mode) || S_ISCHR(facts.st_mode));
    }
    ~CdioDrive() override { Close(); }

    bool Refresh() override { return image_ ? RefreshImage() : RefreshDevice(); }
    const CdDisc* disc() const override { return disc_ ? &*disc_ : nullptr; }

    bool ReadAudio(std::int32_t first, std::int32_t count, std::uint8_t* into) override
    {
        // libcdio reads past the end of an image without a word: the bounds are checked here.
        if (!cdio_ || !disc_ || first < 0 || count <= 0 || first + count > disc_->endSector)
            return false;
        return cdio_read_audio_sectors(cdio_, into, first, static_cast<std::uint32_t>(count)) ==
               DRIVER_OP_SUCCESS;
    }

private:
    using Identity = std::tuple<FileIdentity, FileIdentity>;

    // An image is looked at again only when its files changed: reading the sheet is cheap, but
    // not every second for hours.
    bool RefreshImage()
    {
        FileIdentity data;
        if (EndsWithIgnoreCase(path_, ".cue"))
            data = FileIdentity::Of(path_.substr(0, path_.size() - 4) + ".bin");
        const Identity identity{FileIdentity::Of(path_), data};
        if (identity_ && *identity_ == identity)
            return false;
        const bool first = !identity_;
        identity_ = identity;
        const std::optional<CdDisc> before = disc_;
        Reopen();
        return !first && (before.has_value() || disc_.has_value());
    }

    bool RefreshDevice()
    {
        // A device with a disc in it says when the disc changed; without one, it is opened again
        // to see whether one came.
        if (cdio_ && disc_ && cdio_get_media_changed(cdio_) == 0)
            return false;
        const std::optional<CdDisc> before = disc_;
        Reopen();
        return before != disc_;
    }

    void Reopen()
    {
        Close();
        if (image_ && !std::get<0>(*identity_).exists)
            return;
        if (EndsWithIgnoreCase(path_, ".cue"))
            cdio_ = cdio_open_cue(path_.c_str());
        else if (EndsWithIgnoreCase(path_, ".toc"))
            cdio_ = cdio_open_cdrdao(path_.c_str());
        else
            cdio_ = cdio_open(path_.c_str(), DRIVER_UNKNOWN);
        if (cdio_)
            disc_ = ReadContents(cdio_);
        if (!disc_)
            Close();
    }

    void Close()
    {
        if (cdio_)
            cdio_destroy(cdio_);
        cdio_ = nullptr;
        disc_.reset();
    }

    std::string path_;
    bool image_ = true;
    CdIo_t* cdio_ = nullptr;
    std::optional<CdDisc> disc_;
    std::optional<Identity> identity_;
};

} // namespace

std::unique_ptr<CdDrive> CreateCdioDrive(const std::string& path)
{
    return std::make_unique<CdioDrive>(path);
}

std::unique_ptr<CdDrive> FindCdDrive()
{
    if (const char* configured = std::getenv("VELLUMAR_CD"); configured && *configured)
        return CreateCdioDrive(configured);
    // Only the system's drives: libcdio's default for its image drivers is a made-up file name.
    QuietenCdio();
    char** devices = cdio_get_devices(DRIVER_DEVICE);
    std::unique_ptr<CdDrive> drive;
    if (devices && devices[0])
        drive = CreateCdioDrive(devices[0]);
    if (devices)
        cdio_free_device_list(devices);
    return drive;
}

} // namespace vellumar
