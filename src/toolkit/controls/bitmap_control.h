#pragma once

#include "draw_back.h"
#include <cstdint>

namespace tessaly
{

class ZCanvas;

/// A behaviour class with a background as its whole look.
template <typename Behaviour>
class ZBitmapControl : public Behaviour, public ZDrawBack
{
public:
    using Behaviour::Behaviour;

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override
    {
        ZDrawBack::DrawActive (canvas, time, this->GetDrawRect ());
    }
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override
    {
        ZDrawBack::DrawInactive (canvas, time, this->GetDrawRect ());
    }
};

} // namespace tessaly
