// One running copy per user: an exclusive lock on a file in the user's runtime folder. The
// kernel drops the lock when the process ends, however it ends.

#include "app/SingleInstance.h"

#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

namespace vellumar {

namespace {

std::string LockFolder()
{
    if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime && *runtime)
        return runtime;
    return "/tmp";
}

class FileLock final : public SingleInstanceLock {
public:
    explicit FileLock(const char* name)
        : path_(LockFolder() + "/" + name + "-" + std::to_string(::getuid()) + ".lock")
    {}
    ~FileLock() override
    {
        if (fd_ >= 0)
            ::close(fd_);
    }

    bool acquire() override
    {
        if (fd_ >= 0)
            return true;
        const int fd = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (fd < 0)
            return true; // without a lock file the program still runs
        if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
            ::close(fd);
            return false;
        }
        fd_ = fd;
        return true;
    }

private:
    std::string path_;
    int fd_ = -1;
};

} // namespace

std::unique_ptr<SingleInstanceLock> CreateSingleInstanceLock(const char* name)
{
    return std::make_unique<FileLock>(name);
}

} // namespace vellumar
