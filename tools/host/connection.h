#pragma once

#include "pluginterfaces/vst/ivstmessage.h"
#include "public.sdk/source/vst/hosting/connectionproxy.h"

namespace tessaly::host
{

enum class ConnectionKind
{
    viaProxies, ///< each half knows a stand-in of the other, which drops messages off the main thread
    direct,     ///< the halves know each other
    none
};

/// The two-way connection of component and controller.
class Connection
{
public:
    ~Connection () { Disconnect (); }

    /// Connects component to controller, then controller to component. A half without a connection point is left alone.
    void Connect (Steinberg::FUnknown* component, Steinberg::FUnknown* controller, ConnectionKind connectionKind);

    /// Takes it apart in the same order; does nothing when not connected.
    void Disconnect ();

private:
    using Point = Steinberg::IPtr<Steinberg::Vst::IConnectionPoint>;

    ConnectionKind kind = ConnectionKind::none;
    Point componentPoint;
    Point controllerPoint;
    Steinberg::IPtr<Steinberg::Vst::ConnectionProxy> componentProxy;
    Steinberg::IPtr<Steinberg::Vst::ConnectionProxy> controllerProxy;
};

} // namespace tessaly::host
