#pragma once

#include <stdexcept>

namespace tessaly::keypoints
{

/// What keeps a key-point set from being read or made. The message is a sentence for people, without a full stop.
class SetError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace tessaly::keypoints
