#include "kprd_collection.h"

#include <utility>

namespace tessaly
{

KPRD_Collection::KPRD_Collection (KPRD_MakeBackEnd factory)
    : makeBackEnd (std::move (factory))
{
}

void KPRD_Collection::Load (KPRD_Entries& list)
{
    if (makeBackEnd)
        makeBackEnd ()->Load (list);
}

} // namespace tessaly
