#pragma once

#include "pluginterfaces/base/smartpointer.h"
#include "public.sdk/source/vst/vsteditcontroller.h"
#include <functional>
#include <memory>

namespace tessaly
{

class EditorController;
class ZEditorWrapper;
class ZGuiEditor;

using MakeEditor = std::function<std::unique_ptr<ZGuiEditor> (ZEditorWrapper& surroundings)>;

/// The view that a host opens in a window of its own, with an editor in it, on this system.
/// @param of              counted: lives for as long as the view
/// @param controls        the same object, as views see it
/// @param factoryContext  the host context of the class factory, or null
Steinberg::IPtr<Steinberg::IPlugView> MakeEditorView (Steinberg::Vst::EditController& of, EditorController& controls,
                                                      const Steinberg::IPtr<Steinberg::FUnknown>& factoryContext,
                                                      const MakeEditor& makeEditor);

} // namespace tessaly
