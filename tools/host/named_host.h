#pragma once

#include "public.sdk/source/vst/hosting/hostclasses.h"

#include <string>

namespace tessaly::host
{

/// What a plug-in gets as its host: a name, the makers of messages and attribute lists, and a run loop if this host has
/// one. Not reference counted: its owner keeps it longer than any instance and any bundle that knows it.
class NamedHost final : public Steinberg::Vst::HostApplication
{
public:
    /// @param hostName  as plug-ins see it, at most 127 characters
    /// @param hostLoop  the run loop that hosts have on Linux; not owned: the caller, outlives the context; null without one
    explicit NamedHost (std::string hostName, Steinberg::FUnknown* hostLoop = nullptr);

    Steinberg::tresult PLUGIN_API getName (Steinberg::Vst::String128 out) override;
    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID iidWanted, void** out) override;

private:
    std::string name;
    Steinberg::FUnknown* runLoop; // not owned: the caller's
};

} // namespace tessaly::host
