#include "label_places.h"

#include <algorithm>
#include <numeric>

namespace tessaly::plot
{

namespace
{

/// Labels that touch, laid out around the middle of what they want.
struct Group
{
    double sum = 0.0; // of wanted places, each less its offset in the group
    std::size_t count = 0;

    double Start () const { return sum / static_cast<double> (count); }
};

} // namespace

std::vector<double> LabelPlaces (const std::vector<double>& wanted, double distance, double first, double last)
{
    std::vector<std::size_t> order (wanted.size ());
    std::iota (order.begin (), order.end (), std::size_t{ 0 });
    std::ranges::stable_sort (order, {}, [&] (std::size_t i) { return wanted[i]; });
    if (wanted.size () > 1)
        distance = std::min (distance, (last - first) / static_cast<double> (wanted.size () - 1));

    // Pool adjacent violators: a label that comes too near joins the group above it.
    std::vector<Group> groups;
    for (const std::size_t i : order)
    {
        groups.push_back ({ wanted[i], 1 });
        while (groups.size () > 1)
        {
            const Group below = groups.back ();
            Group& above = groups[groups.size () - 2];
            const double height = distance * static_cast<double> (above.count);
            if (above.Start () + height <= below.Start ())
                break;
            above.sum += below.sum - height * static_cast<double> (below.count);
            above.count += below.count;
            groups.pop_back ();
        }
    }

    std::vector<double> places (wanted.size ());
    std::size_t done = 0;
    for (const Group& group : groups)
        for (std::size_t i = 0; i < group.count; ++i, ++done)
        {
            const double place = group.Start () + distance * static_cast<double> (i);
            const double highest = first + distance * static_cast<double> (done);
            const double lowest = last - distance * static_cast<double> (order.size () - 1 - done);
            places[order[done]] = std::clamp (place, highest, std::max (highest, lowest));
        }
    return places;
}

} // namespace tessaly::plot
