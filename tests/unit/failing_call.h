/// Calls of libc that go wrong when the tool makes them: open(), fstat(), lstat() and those of CMakeLists.txt's list.
#pragma once

#include <functional>
#include <string>

/// As long as it lives, the next call of this name is not made, but that close() closes. It returns what a failed one
/// does, with this error; a write() without an error writes nothing.
class failing_call
{
public:
    failing_call(std::string call, int error, unsigned calls_before = 0);
    /// Expects that it did fail.
    ~failing_call();
    failing_call(const failing_call &) = delete;
    failing_call &operator=(const failing_call &) = delete;

private:
    friend bool fails(const char *call);

    const std::string name;
    const int reason;
    unsigned to_come;  // before it
    bool failed = false;
};

/// Whether this call is the one; errno is set then.
bool fails(const char *call);

/// Done behind the next fchmod() or lock command of this name, once: what somebody else may do at this moment.
struct interlude {
    std::string call;
    std::function<void()> act;
};
extern interlude behind;
