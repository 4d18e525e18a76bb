// One running copy per user session: a named mutex, released by the system when the process
// ends.

#include "app/SingleInstance.h"
#include "common/WideText_win.h"

#include <windows.h>

#include <string>

namespace vellumar {

namespace {

class MutexLock final : public SingleInstanceLock {
public:
    explicit MutexLock(const char* name)
        : name_(ToWide(std::string("Local\\") + name + "-single-instance"))
    {}
    ~MutexLock() override
    {
        if (mutex_)
            CloseHandle(mutex_);
    }

    bool acquire() override
    {
        if (mutex_)
            return true;
        HANDLE mutex = CreateMutexW(nullptr, TRUE, name_.c_str());
        if (!mutex)
            return true; // without a mutex the program still runs
        if (GetLastError() == ERROR_ALREADY_EXISTS) {
            CloseHandle(mutex);
            return false;
        }
        mutex_ = mutex;
        return true;
    }

private:
    std::wstring name_;
    HANDLE mutex_ = nullptr;
};

} // namespace

std::unique_ptr<SingleInstanceLock> CreateSingleInstanceLock(const char* name)
{
    return std::make_unique<MutexLock>(name);
}

} // namespace vellumar
