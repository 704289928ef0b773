#pragma once

#include <stdexcept>

namespace tessaly::soak
{

/// What the soak has found. The message is a sentence for people, without a full stop.
class Fault : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace tessaly::soak
