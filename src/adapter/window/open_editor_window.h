#pragma once

#include "editor_window.h"
#include "pluginterfaces/base/funknown.h"
#include <memory>
#include <span>

namespace tessaly
{

/// The kind of parent window that this system's hosts give.
Steinberg::FIDString EditorPlatformType ();

/// What a window is opened with.
struct EditorWindowPlace
{
    void* parent = nullptr;                            // the host's window, of EditorPlatformType
    ZPoint size;                                       // pixels
    double scale = 1.0;                                // pixels a coordinate
    std::span<Steinberg::FUnknown* const> hostObjects; // those that may offer what a window needs of the host; or null
};

/// A folder for each system has one.
/// @param listener  not owned: outlives the window
/// @return null when none can be opened
std::unique_ptr<EditorWindow> OpenEditorWindow (const EditorWindowPlace& place, EditorWindowListener& listener);

} // namespace tessaly
