#pragma once

namespace tessaly
{

/// Pixels a coordinate of the panel: 1 to 3 in steps of 0.25. What the host tells counts; where it tells nothing, what
/// the user chose last in any window.
class PanelScale
{
public:
    static constexpr double kLeast = 1.0;
    static constexpr double kMost = 3.0;
    static constexpr double kStep = 0.25;

    PanelScale (); ///< as the user's settings say now

    double Get () const { return scale; }
    bool IsHosts () const { return told; }
    bool Tell (double factor);   ///< by the host. @return whether the scale is another now
    bool Choose (double factor); ///< by the user, and kept for the next window; nothing where the host tells

private:
    double scale = kLeast;
    bool told = false;
};

} // namespace tessaly
