#include "component_handler.h"

namespace tessaly::host
{

using namespace Steinberg;
using Kind = HandlerCall::Kind;

ComponentHandler::ComponentHandler (Listener callListener, MenuMaker contextMenuMaker)
    : listener (std::move (callListener))
    , menuMaker (std::move (contextMenuMaker))
{
}

tresult PLUGIN_API ComponentHandler::beginEdit (Vst::ParamID id)
{
    return Report ({ .kind = Kind::beginEdit, .id = id });
}

tresult PLUGIN_API ComponentHandler::performEdit (Vst::ParamID id, Vst::ParamValue value)
{
    return Report ({ .kind = Kind::performEdit, .id = id, .value = value });
}

tresult PLUGIN_API ComponentHandler::endEdit (Vst::ParamID id)
{
    return Report ({ .kind = Kind::endEdit, .id = id });
}

tresult PLUGIN_API ComponentHandler::restartComponent (int32 flags)
{
    return Report ({ .kind = Kind::restartComponent, .flags = flags });
}

tresult PLUGIN_API ComponentHandler::setDirty (TBool state)
{
    return Report ({ .kind = Kind::setDirty, .flags = state });
}

tresult PLUGIN_API ComponentHandler::requestOpenEditor (FIDString /*name*/)
{
    return kNotImplemented;
}

tresult PLUGIN_API ComponentHandler::startGroupEdit ()
{
    return Report ({ .kind = Kind::startGroupEdit });
}

tresult PLUGIN_API ComponentHandler::finishGroupEdit ()
{
    return Report ({ .kind = Kind::finishGroupEdit });
}

Vst::IContextMenu* PLUGIN_API ComponentHandler::createContextMenu (IPlugView* /*view*/, const Vst::ParamID* id)
{
    return menuMaker ? menuMaker (id) : nullptr;
}

tresult PLUGIN_API ComponentHandler::queryInterface (const TUID iidWanted, void** out)
{
    QUERY_INTERFACE (iidWanted, out, FUnknown::iid, IComponentHandler)
    QUERY_INTERFACE (iidWanted, out, IComponentHandler::iid, IComponentHandler)
    QUERY_INTERFACE (iidWanted, out, IComponentHandler2::iid, IComponentHandler2)
    if (menuMaker)
    {
        QUERY_INTERFACE (iidWanted, out, IComponentHandler3::iid, IComponentHandler3)
    }
    *out = nullptr;
    return kNoInterface;
}

tresult ComponentHandler::Report (const HandlerCall& call) const
{
    if (listener)
        listener (call);
    return kResultOk;
}

} // namespace tessaly::host
