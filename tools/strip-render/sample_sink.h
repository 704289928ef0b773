#pragma once

#include <span>

namespace tessaly::render
{

/// Takes the samples of a render, in order.
class SampleSink
{
public:
    virtual ~SampleSink () = default;

    /// @param samples  whole frames, channels in turn
    /// @throws RenderError when not all of them can be taken
    virtual void Write (std::span<const float> samples) = 0;
};

} // namespace tessaly::render
