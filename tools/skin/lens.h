#pragma once

#include "picture.h"

namespace tessaly::skin
{

/// The cut lens: two rings of twelve flat facets, of which the one at the pointer takes on the light's colour.
struct Lens
{
    Point center;
    double outer;         // radius of the outer corners
    double inner;         // of the inner ones
    double pointerDegree; // all facets turn with it; the light stays above
    Ink light;
    double lightShare; // how much of it a facet takes at most, but for the pointer's own
};

void DrawLens (Picture& picture, const Lens& lens);

} // namespace tessaly::skin
