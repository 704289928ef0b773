#include "meter_log.h"

#include "render_error.h"
#include "text.h"

#include "meter_scales.h"

#include <algorithm>
#include <cmath>

namespace tessaly::render
{

namespace
{

constexpr int kSecondsDecimals = 6;
constexpr int kDbDecimals = 3; // the finest entry of a meter's scale

double ToDb (double gain)
{
    return 20.0 * std::log10 (gain);
}

std::string OutputText (double db)
{
    return db == MeterReading::kOutputTooLow ? "-inf" : ToText (db, kDbDecimals);
}

} // namespace

void MeterReading::SetGainReduction (double normalized)
{
    constexpr double kLast = static_cast<double> (kGainReductionScale.size () - 1);
    const double position = std::clamp (1.0 - normalized, 0.0, 1.0) * kLast;
    const auto index = static_cast<std::size_t> (std::lround (position));
    gainReductionDb = std::abs (ToDb (kGainReductionScale[index]));
}

void MeterReading::SetOutput (double normalized)
{
    // One lamp for each entry, and one more at full scale.
    constexpr double kLamps = static_cast<double> (kOutputScale.size ()) + 1.0;
    const auto lamps = static_cast<std::size_t> (std::lround (std::clamp (normalized, 0.0, 1.0) * kLamps));
    if (lamps == 0)
        outputDb = kOutputTooLow;
    else
        outputDb = lamps > kOutputScale.size () ? 0.0 : ToDb (kOutputScale[lamps - 1]);
}

MeterLog::MeterLog (const std::filesystem::path& file, int channels, host::Existing existing)
    : pending (file, existing)
    , out (pending.WorkingPath (), std::ios::trunc)
{
    if (!out)
        throw RenderError ("cannot write to \"" + pending.Target ().parent_path ().string () + "\"");
    out << "time_s";
    for (int i = 1; i <= channels; ++i)
        out << ",gain_reduction_db_" << i << ",output_db_" << i;
    out << '\n';
}

void MeterLog::Add (double seconds, std::span<const MeterReading> channels)
{
    out << ToText (seconds, kSecondsDecimals);
    for (const MeterReading& reading : channels)
        out << ',' << ToText (reading.gainReductionDb, kDbDecimals) << ',' << OutputText (reading.outputDb);
    out << '\n';
}

void MeterLog::Commit ()
{
    out.close ();
    if (!out)
        throw RenderError ("the meters cannot be written to \"" + pending.Target ().string () + "\"");
    pending.Commit ();
}

} // namespace tessaly::render
