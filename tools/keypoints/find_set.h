#pragma once

#include "key_points.h"

#include <string>
#include <vector>

namespace tessaly::keypoints
{

struct NamedSet
{
    std::string name;
    KeyPointSet table;
    std::vector<std::string> alike; ///< where more than one set has the name: the places of all, that of this one first
};

/// A set by its file, or by its name in the plug-in's collection, with or without the folders ("Lead Vocal",
/// "voice/Lead Vocal"), letter case apart; "01 Basic" is the built-in set where no file has the name. A file wins, then
/// a name in its own letters, then the collection's order.
/// @throws SetError when there is neither, or it is no key-point set
NamedSet FindSet (const std::string& fileOrName);

/// A line on standard error where the name has stood for more than one set.
void TellAlike (const char* program, const NamedSet& set);

} // namespace tessaly::keypoints
