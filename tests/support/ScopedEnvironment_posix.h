#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace vellumar::test {

// Sets (or, with no value, removes) an environment variable for the length of a test.
class ScopedEnvironment {
public:
    ScopedEnvironment(const char* name, const std::optional<std::string>& value)
        : name_(name)
    {
        if (const char* old = std::getenv(name))
            old_ = old;
        if (value)
            ::setenv(name, value->c_str(), 1);
        else
            ::unsetenv(name);
    }
    ~ScopedEnvironment()
    {
        if (old_)
            ::setenv(name_, old_->c_str(), 1);
        else
            ::unsetenv(name_);
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    const char* name_;
    std::optional<std::string> old_;
};

} // namespace vellumar::test
