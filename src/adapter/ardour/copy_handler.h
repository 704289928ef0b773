#pragma once

#include "pluginterfaces/base/funknown.h"

namespace Steinberg::Vst
{
class IEditController;
}

namespace tessaly::ardour
{

/// Ardour runs a copy of the plug-in for each channel of a track and shows the window of the first one alone. It asks
/// that one's controller for this interface, a published extension whose id and calls are fixed, and tells it of the
/// others: what is no parameter reaches them by no road of the host's, such as a set that the user chooses.
struct ICopyHandler : Steinberg::FUnknown
{
    /// @param copy  not owned: the host's  @param mode  how the copy is used, of no matter here
    virtual Steinberg::tresult PLUGIN_API addSlave (Steinberg::Vst::IEditController* copy, Steinberg::int32 mode) = 0;
    virtual Steinberg::tresult PLUGIN_API removeSlave (Steinberg::Vst::IEditController* copy) = 0;

    static const Steinberg::FUID iid;
};

DECLARE_CLASS_IID (ICopyHandler, 0xd93894bd, 0x67454c29, 0x977ae2f5, 0xdb380434)

} // namespace tessaly::ardour
