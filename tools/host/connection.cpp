#include "connection.h"

namespace tessaly::host
{

using namespace Steinberg;

void Connection::Connect (FUnknown* component, FUnknown* controller, ConnectionKind connectionKind)
{
    Disconnect ();
    componentPoint = FUnknownPtr<Vst::IConnectionPoint> (component);
    controllerPoint = FUnknownPtr<Vst::IConnectionPoint> (controller);
    if (!componentPoint || !controllerPoint || connectionKind == ConnectionKind::none)
        return;

    kind = connectionKind;
    if (kind == ConnectionKind::direct)
    {
        componentPoint->connect (controllerPoint);
        controllerPoint->connect (componentPoint);
        return;
    }
    componentProxy = owned (new Vst::ConnectionProxy (componentPoint));
    controllerProxy = owned (new Vst::ConnectionProxy (controllerPoint));
    componentProxy->connect (controllerPoint);
    controllerProxy->connect (componentPoint);
}

void Connection::Disconnect ()
{
    if (kind == ConnectionKind::direct)
    {
        componentPoint->disconnect (controllerPoint);
        controllerPoint->disconnect (componentPoint);
    }
    else if (kind == ConnectionKind::viaProxies)
    {
        componentProxy->disconnect ();
        controllerProxy->disconnect ();
    }
    kind = ConnectionKind::none;
    componentProxy = nullptr;
    controllerProxy = nullptr;
    componentPoint = nullptr;
    controllerPoint = nullptr;
}

} // namespace tessaly::host
