#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tessaly::render
{

/// The levels of a render over its time, in some thousand stretches whatever its length: when there are too many, two
/// become one.
class LevelTrace
{
public:
    struct Stretch
    {
        std::int64_t frames = 0;
        float inputPeak = 0.0F; ///< linear, of all channels; likewise those that follow
        float outputPeak = 0.0F;
        double inputSquares = 0.0; ///< sums over all samples
        double outputSquares = 0.0;
        double reductionDb = 0.0; ///< the largest
    };

    explicit LevelTrace (int channels);

    /// @param input, output  samples of a block, whole frames, channels in turn; what is not finite is left out
    void Add (std::span<const float> input, std::span<const float> output, double reductionDb);

    /// Makes the output louder after all. @param gain  linear
    void ApplyToOutput (double gain);

    const std::vector<Stretch>& Stretches () const { return stretches; }
    int Channels () const { return channels; }

private:
    void Halve ();

    int channels;
    std::int64_t framesEach = 1; // a stretch that has as many is full
    std::vector<Stretch> stretches;
};

} // namespace tessaly::render
