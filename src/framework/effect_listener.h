#pragma once

#include <cstdint>

namespace tessaly
{

/// What an open editor shows the adapter: it hears the effect's notifications. Codes and data are those of
/// `ZEffectWrapper::NotifyEditor`.
class ZEffectListener
{
public:
    virtual ~ZEffectListener () = default;

    /// @return true if the code was handled. Called on the thread that caused the event.
    virtual bool OnEffectEvent (std::int32_t code, void* data) = 0;
    virtual bool OnEffectEvent2 (std::int32_t code, void* data) = 0;
};

} // namespace tessaly
