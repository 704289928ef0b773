#pragma once

#include "canvas.h"
#include "geometry.h"
#include <memory>

namespace tessaly
{

/// Pixels that a view keeps of what it drew: an offscreen canvas for a rectangle, made when it is first needed and anew
/// when the rectangle, its place on the surface or the density of the surface changes.
class OffscreenLayer
{
public:
    /// @param target  the canvas to be copied to  @param rect  in its coordinates; an empty one has no pixels
    /// @return true when the pixels are new, so that everything in them has to be drawn
    bool Prepare (const ZCanvas& target, const ZRect& rect);
    void Delete ();

    ZCanvas* GetCanvas () const { return canvas.get (); } ///< null without pixels
    void CopyTo (ZCanvas& target) const;                  ///< to its rectangle; null pixels copy nothing

private:
    std::unique_ptr<ZOffscreenCanvas> canvas;
    ZRect rect;
    ZPoint origin;      // of the target that the canvas was made for
    double scale = 0.0; // likewise
};

} // namespace tessaly
