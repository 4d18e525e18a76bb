#pragma once

#include <memory>

namespace vellumar {

// Held by the one running copy of the program for its user; a second copy cannot take it.
class SingleInstanceLock {
public:
    virtual ~SingleInstanceLock() = default;
    // True when this process now holds the lock (or already did).
    virtual bool acquire() = 0;
};

// `name` tells programs apart (the tests use their own).
std::unique_ptr<SingleInstanceLock> CreateSingleInstanceLock(const char* name = "vellumar");

} // namespace vellumar
