#pragma once

#include "draw_back.h"
#include <cstdint>

namespace tessaly
{

class ZCanvas;

/// A behaviour class with a look: a background in the draw rectangle and over it the behaviour's GetDisplayText at its
/// GetTextPlace.
/// @tparam TextLook  the mix-in that draws the text
template <typename Behaviour, typename TextLook>
class ZTextControl : public Behaviour, public ZDrawBack, public TextLook
{
public:
    using Behaviour::Behaviour;

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override
    {
        ZDrawBack::DrawActive (canvas, time, this->GetDrawRect ());
        TextLook::DrawActive (canvas, time, this->GetTextPlace (), this->GetDisplayText ());
    }
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override
    {
        ZDrawBack::DrawInactive (canvas, time, this->GetDrawRect ());
        TextLook::DrawInactive (canvas, time, this->GetTextPlace (), this->GetDisplayText ());
    }
};

} // namespace tessaly
