#include "binary_message.h"
#include "editor_view.h"
#include "effect.h"
#include "gui_editor.h"
#include "host_context.h"
#include "live_effect.h"
#include "vst3_controller_wrapper.h"
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
    const auto makeEditor = [this] (ZEditorWrapper& surroundings)
    {
        auto made = factory->CreateEditor (surroundings);
        made->OnEffectEvent (kCodeStorage, HasEffect () ? storage : nullptr);
        made->OnEffectEvent (kCodeNumInputs, &numChannels);
        return made;
    };
    return MakeEditorView (*this, *this, FactoryHostContext (), makeEditor).take ();
}

void ZVst3ControllerWrapper::ConnectEditor (ZEffectListener& newEditor)
{
    editor = &newEditor;
    SendBinaryMessage (*this, message::kConnectEditor, message::kPointerAttribute, &editor, sizeof (editor));
    if (life)
        life->Editor ().Set (editor); // whether or not the host delivers messages this way
}

void ZVst3ControllerWrapper::DisconnectEditor (ZEffectListener& oldEditor)
{
    ZEffectListener* const leaving = &oldEditor;
    if (editor == leaving) // or a newer one has taken its place
    {
        editor = nullptr;
        SendBinaryMessage (*this, message::kDisconnectEditor, message::kPointerAttribute, &leaving, sizeof (leaving));
    }
    if (life)
        life->Editor ().TakeBack (leaving);
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
    performEdit (id, static_cast<double> (value));
}

void ZVst3ControllerWrapper::BeginHeldEdit (Vst::ParamID id)
{
    edits.BeginHeld (id, clock ());
    if (auto* const late = LatePoints ())
        late->Hold (id);
}

} // namespace tessaly
