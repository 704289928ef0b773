#pragma once

#include <stdexcept>

namespace tessaly::stage
{

/// A fault in a script or in what it asks for. The message is a sentence for people, without a full stop.
class ScriptError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace tessaly::stage
