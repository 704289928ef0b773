#pragma once

#include "kprd_data.h"
#include <functional>
#include <memory>

namespace tessaly
{

/// Where key-point sets come from. A system's own back end derives from it.
class KPRD_CollectionImp
{
public:
    virtual ~KPRD_CollectionImp () = default;

    /// Appends what there is to `list`: entries of the top level, in the same order each time. What cannot be read is left
    /// out.
    virtual void Load (KPRD_Entries& list) = 0;
};

/// Makes the back end. It is handed in from above, since nothing here knows which system it runs on; an empty one means
/// that there is no collection.
using KPRD_MakeBackEnd = std::function<std::unique_ptr<KPRD_CollectionImp> ()>;

/// The front of a collection: the back end lives for as long as one reading takes.
class KPRD_Collection
{
public:
    explicit KPRD_Collection (KPRD_MakeBackEnd factory);
    virtual ~KPRD_Collection () = default;

    virtual void Load (KPRD_Entries& list); ///< as the back end's

private:
    KPRD_MakeBackEnd makeBackEnd;
};

} // namespace tessaly
