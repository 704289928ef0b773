#pragma once

#include "chance.h"
#include "environment_variable.h"
#include "temp_folder.h"

namespace tessaly::soak
{

/// The only collection of key-point sets that the plug-in sees while this lives: a folder of its own, in which files
/// of all kinds come and go.
class KeyPointFiles
{
public:
    KeyPointFiles ();

    /// Writes some files anew, good ones and bad ones, and removes some.
    void Change (Chance& chance);

private:
    test::TempFolder folder;
    test::EnvironmentVariable userData;
    test::EnvironmentVariable machineData;
};

} // namespace tessaly::soak
