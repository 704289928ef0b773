#pragma once

namespace tessaly
{

/// Lets the meters sink to zero when the plug-in is switched off, tick by tick:
///     level += (target - level) * (1 - exp (-0.1)),   and 1.2e-07 further, but never past the target
/// Switched on again they show at once what they measure. The state outlives a closed editor.
class MeterFade
{
public:
    bool SetWanted (bool on); ///< whether meters are to show. @return true if that is new
    void StartOut ();
    void StartIn ();
    void Step ();                                          ///< one tick
    float Level () const { return active ? level : 1.0f; } ///< factor of every meter, 0 to 1

private:
    bool active = false;
    bool wanted = true;
    float target = 0.0f;
    float level = 1.0f;
};

} // namespace tessaly
