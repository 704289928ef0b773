#pragma once

#include <stdexcept>

namespace tessaly::host
{

/// What goes wrong between this host and a plug-in. The message is a sentence for people, without a full stop.
class HostError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace tessaly::host
