#include "editor_view.h"

#include "gui_editor.h"

namespace tessaly
{

using namespace Steinberg;

IPtr<IPlugView> MakeEditorView (Vst::EditController& /*of*/, EditorController& /*controls*/,
                                const IPtr<FUnknown>& /*factoryContext*/, const MakeEditor& /*makeEditor*/)
{
    return nullptr;
}

} // namespace tessaly
