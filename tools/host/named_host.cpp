#include "named_host.h"

#include "public.sdk/source/vst/utility/stringconvert.h"

#include <mutex>

namespace tessaly::host
{

using namespace Steinberg;

NamedHost::NamedHost (std::string hostName, FUnknown* hostLoop)
    : name (std::move (hostName))
    , runLoop (hostLoop)
{
}

tresult PLUGIN_API NamedHost::getName (Vst::String128 out)
{
    static std::mutex mutex; // the SDK's converter is one for all threads, and plug-ins ask from any
    const std::scoped_lock lock (mutex);
    return VST3::StringConvert::convert (name, out) ? kResultTrue : kInternalError;
}

tresult PLUGIN_API NamedHost::queryInterface (const TUID iidWanted, void** out)
{
    if (HostApplication::queryInterface (iidWanted, out) == kResultTrue)
        return kResultTrue;
    // Asked here again: the base class asks its support object for the wrong id.
    if (getPlugInterfaceSupport ()->queryInterface (iidWanted, out) == kResultTrue)
        return kResultTrue;
    if (runLoop)
        return runLoop->queryInterface (iidWanted, out);
    return kNoInterface;
}

} // namespace tessaly::host
