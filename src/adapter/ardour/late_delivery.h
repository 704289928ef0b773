#pragma once

namespace tessaly::ardour
{

class LatePoints;

/// The one thread of the process that delivers the late points of all instances, every 10 ms. It runs from the first
/// Join to the last Leave. No thread of its own for each instance, as sessions have hundreds. Any thread but the audio
/// thread; both take a lock that is held while points are delivered.
class LateDelivery
{
public:
    /// @param points  not owned: whoever joins, until Leave has returned
    static void Join (LatePoints& points);  ///< once is enough
    static void Leave (LatePoints& points); ///< nothing is delivered to it any more; does nothing if it has not joined
    static void End ();                     ///< ends the thread, whoever has joined: the module goes
};

} // namespace tessaly::ardour
