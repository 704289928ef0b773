#pragma once

#include "pluginterfaces/gui/iplugview.h"
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
    /// @param hostLoop  not owned: the caller, outlives the context; null for a host without a run loop
    explicit NamedHost (std::string hostName, Steinberg::Linux::IRunLoop* hostLoop = nullptr);

    Steinberg::tresult PLUGIN_API getName (Steinberg::Vst::String128 out) override;
    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID iidWanted, void** out) override;

private:
    std::string name;
    Steinberg::Linux::IRunLoop* runLoop; // not owned: the caller's
};

} // namespace tessaly::host
