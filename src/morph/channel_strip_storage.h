#pragma once

#include "kprd_manager.h"
#include "parameter_storage_base.h"

namespace tessaly
{

/// The strip's parameter storage. Also owns the collection of key-point sets, so that there is one for each instance.
class ZChannel_StripStorage : public ZParameterStorageBase
{
public:
    /// Reads the collection, on this thread. @param makeBackEnd  an empty one makes an empty collection
    explicit ZChannel_StripStorage (KPRD_MakeBackEnd makeBackEnd = {});

    KPRD_Manager* Manager () { return &manager; } ///< never null

private:
    KPRD_Manager manager;
};

} // namespace tessaly
