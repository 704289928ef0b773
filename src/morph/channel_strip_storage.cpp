#include "channel_strip_storage.h"

#include <utility>

namespace tessaly
{

ZChannel_StripStorage::ZChannel_StripStorage (KPRD_MakeBackEnd makeBackEnd)
    : manager (std::move (makeBackEnd))
{
    manager.Load ();
}

} // namespace tessaly
