#pragma once

#include <cstdint>
#include <span>

namespace tessaly::render
{

/// Samples of -1 to 1 as integers. The nearest step is taken, so that integers that were read come back as they were.
/// Dither adds noise of triangular density, two steps wide in all (TPDF; S. P. Lipshitz, R. A. Wannamaker, J.
/// Vanderkooy, "Quantization and Dither", J. Audio Eng. Soc. 40, 1992), from a generator with a fixed seed: two renders
/// of one input are the same.
class SampleQuantizer
{
public:
    /// @param bits  16, 24 or 32
    SampleQuantizer (int bits, bool dither);

    /// @param out  as many as `samples`, the value in the high bits of 32, as libsndfile takes integers; NaN gives 0
    void Quantize (std::span<const float> samples, std::span<int> out);

    std::int64_t ClippedSamples () const { return clipped; } ///< those beyond full scale
    double OverDb () const;                                  ///< by how much the largest of them; 0 without any

private:
    double Noise (); // -1 to 1, triangular

    int unusedBits;
    bool dithers;
    double fullScale; // steps
    std::uint64_t seed = 1;
    std::int64_t clipped = 0;
    double largest = 1.0;
};

} // namespace tessaly::render
