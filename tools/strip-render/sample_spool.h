#pragma once

#include "sample_sink.h"

#include <cstdio>
#include <memory>
#include <span>

namespace tessaly::render
{

/// Samples put by on disk, in a temporary file without a name, until it is known what is to become of them.
class SampleSpool : public SampleSink
{
public:
    /// @throws RenderError when there is no place for temporary files
    SampleSpool ();

    void Write (std::span<const float> samples) override;

    /// Back to the first sample, to be read.
    void Rewind ();

    /// @return how many were read, fewer than there is room for at the end. @throws RenderError
    std::size_t Read (std::span<float> samples);

private:
    struct Close
    {
        void operator() (std::FILE* file) const { std::fclose (file); }
    };
    std::unique_ptr<std::FILE, Close> file;
};

} // namespace tessaly::render
