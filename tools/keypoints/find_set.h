#pragma once

#include "key_points.h"

#include <string>

namespace tessaly::keypoints
{

struct NamedSet
{
    std::string name;
    KeyPointSet table;
};

/// A set by its file, or by the name under which the plug-in's collection has it. A file wins.
/// @throws SetError when there is neither, or it is no key-point set
NamedSet FindSet (const std::string& fileOrName);

} // namespace tessaly::keypoints
