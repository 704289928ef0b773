#pragma once

#include "kprd_data.h"
#include <cstdint>

namespace tessaly
{

/// One line of what the file dialog lists.
class KPRD_Select
{
public:
    KPRD_Select (KPRD_Data* entry, std::uint32_t level)
        : data (entry)
        , depth (level)
    {
    }

    KPRD_Data* Data () const { return data; }
    std::uint32_t Depth () const { return depth; } ///< 0 at the top level, 1 in a folder there

private:
    KPRD_Data* data; // not owned: the manager's tree
    std::uint32_t depth;
};

} // namespace tessaly
