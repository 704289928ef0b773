#include "binary_message.h"
#include "effect.h"
#include "gui_editor.h"
#include "host_context.h"
#include "live_effect.h"
#include "vst3_controller_wrapper.h"
#include "vst3_editor_view_wrapper.h"
#include <algorithm>
#include <utility>

// The controller: what the open views and their editor ask of it.

namespace tessaly
{

using namespace Steinberg;

IPlugView* PLUGIN_API ZVst3ControllerWrapper::createView (FIDString name)
{
    OnHostCall ();
    if (!FIDStringsEqual (name, Vst::ViewType::kEditor))
        return nullptr;
    auto view = Steinberg::owned (new ZVst3EditorViewWrapper (*this, *this, FactoryHostContext ()));
    auto made = factory->CreateEditor (*view);
    made->OnEffectEvent (kCodeStorage, HasEffect () ? storage : nullptr);
    made->OnEffectEvent (kCodeNumInputs, &numChannels);
    view->SetEditor (std::move (made));
    return view.take ();
}

void ZVst3ControllerWrapper::ConnectEditor (ZEffectListener& newEditor)
{
    editors.push_back (&newEditor);
    AnnounceEditor ();
}

void ZVst3ControllerWrapper::AnnounceEditor ()
{
    ZEffectListener* const newest = editors.back ();
    SendBinaryMessage (*this, message::kConnectEditor, message::kPointerAttribute, &newest, sizeof (newest));
    if (life)
        life->Editor ().Set (newest); // whether or not the host delivers messages this way
}

void ZVst3ControllerWrapper::DisconnectEditor (ZEffectListener& oldEditor)
{
    ZEffectListener* const leaving = &oldEditor;
    const bool wasNewest = !editors.empty () && editors.back () == leaving;
    std::erase (editors, leaving);
    if (wasNewest)
        SendBinaryMessage (*this, message::kDisconnectEditor, message::kPointerAttribute, &leaving, sizeof (leaving));
    if (life)
        life->Editor ().TakeBack (leaving);
    if (!wasNewest || editors.empty ())
        return;
    AnnounceEditor ();
    if (HasEffect ()) // shown anew: events have passed the older one by
        editors.back ()->OnEffectEvent (kCodeStorage, storage);
}

void ZVst3ControllerWrapper::AddView (EditorViewListener& view)
{
    if (std::find (views.begin (), views.end (), &view) == views.end ())
        views.push_back (&view);
}

bool ZVst3ControllerWrapper::QueryEffect (std::int32_t kind, void* out)
{
    auto* const effect = Effect ();
    return effect != nullptr && effect->QueryEffect (kind, out);
}

bool ZVst3ControllerWrapper::GetInfo (std::int32_t kind, void* out)
{
    if (kind == kCodeVuBuffer && out != nullptr)
    {
        *static_cast<ZVuBuffer**> (out) = &vuBuffer;
        return true;
    }
    auto* const effect = Effect ();
    return effect != nullptr && effect->GetInfo (kind, out);
}

void ZVst3ControllerWrapper::SetParameterFromEditor (Vst::ParamID id, float value)
{
    setParamNormalized (id, static_cast<double> (value));
    PerformInEdit (id, static_cast<double> (value));
}

void ZVst3ControllerWrapper::BeginHeldEdit (Vst::ParamID id)
{
    edits.BeginHeld (id, clock ());
    if (auto* const late = LatePoints ())
        late->Hold (id);
}

} // namespace tessaly
