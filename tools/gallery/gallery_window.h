#pragma once

#include "gallery_editor.h"
#include "offscreen_window.h"
#include "script.h"
#include "surroundings.h"

namespace tessaly::gallery
{

/// The gallery's panel in a window without a screen, and what scripts reach of it.
class GalleryWindow final : public stage::ScriptStage
{
public:
    explicit GalleryWindow (double scale); ///< pixels a coordinate

    stage::OffscreenWindow& Window () override { return window; }
    std::optional<ZRect> PlaceOf (std::string_view name) const override;
    void SetLevel (std::int32_t meter, float level) override;
    void SetParameter (std::string_view name, double plain) override;

    stage::Png Picture (); ///< of the surface, the tooltip and the pointer
    GalleryEditor& Editor () { return editor; }
    Surroundings& Around () { return surroundings; }

private:
    void DrawSign (ZCanvas& canvas) const;
    void DrawPointer (ZCanvas& canvas) const;

    stage::OffscreenWindow window;
    Surroundings surroundings;
    GalleryEditor editor; // last: ends before what it draws on
};

} // namespace tessaly::gallery
