#include "editor_view.h"

#include "gui_editor.h"
#include "vst3_editor_view_wrapper.h"

namespace tessaly
{

using namespace Steinberg;

IPtr<IPlugView> MakeEditorView (Vst::EditController& of, EditorController& controls,
                                const IPtr<FUnknown>& factoryContext, const MakeEditor& makeEditor)
{
    auto view = Steinberg::owned (new ZVst3EditorViewWrapper (of, controls, factoryContext));
    view->SetEditor (makeEditor (*view));
    return view;
}

} // namespace tessaly
