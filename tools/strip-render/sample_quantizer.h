#pragma once

#include <cstdint>
#include <span>

namespace tessaly::render
{

/// Samples of -1 to 1 as integers. The nearest step is taken, so that integers that were read come back as they were.
/// Dither adds noise of triangular density, two steps wide in all (TPDF; S. P. Lipshitz, R. A. Wannamaker, J.
/// Vanderkooy, "Quantization and Dither", J. Audio Eng. Soc. 40, 1992), the same for each sample of the same place: two
/// renders of one input are the same.
class SampleQuantizer
{
public:
    /// @param bits  16, 24 or 32
    SampleQuantizer (int bits, bool dither);

    /// @param out  as many as `samples`, the value in the high bits of 16 or 32, as libsndfile takes integers; NaN
    ///             gives 0. Shorts are for 16 bits, ints for more.
    void Quantize (std::span<const float> samples, std::span<short> out);
    void Quantize (std::span<const float> samples, std::span<int> out);

    std::int64_t ClippedSamples () const { return clipped; } ///< those beyond full scale
    double OverDb () const;                                  ///< by how much the largest of them; 0 without any

private:
    template <typename ToSteps, typename Step>
    void QuantizeBy (ToSteps toSteps, std::span<const float> samples, std::span<Step> out);
    void FindClipping (std::span<const float> samples);

    int bits;
    bool dithers;
    std::uint32_t place = 0; // of the next sample; begins anew after 2^32
    std::int64_t clipped = 0;
    double largest = 1.0;
};

} // namespace tessaly::render
