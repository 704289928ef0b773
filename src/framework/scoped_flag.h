#pragma once

namespace tessaly
{

/// Sets a flag and brings its former value back on every way out: a guard against being called again from within, on one
/// thread. No lock.
class ScopedFlag
{
public:
    explicit ScopedFlag (bool& target)
        : flag (target)
        , previous (target)
    {
        flag = true;
    }
    ~ScopedFlag () { flag = previous; }
    ScopedFlag (const ScopedFlag&) = delete;
    ScopedFlag& operator= (const ScopedFlag&) = delete;

private:
    bool& flag; // not owned: the caller's
    bool previous;
};

} // namespace tessaly
