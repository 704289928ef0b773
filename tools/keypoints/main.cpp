#include "key_points_command.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main (int argc, char** argv)
{
    try
    {
        const int status = tessaly::keypoints::RunCommandLine (argc, argv);
        if (std::cout.flush ())
            return status;
        std::cerr << "keypoints: what was to be printed could not be written\n";
    }
    catch (const std::exception& error)
    {
        std::cerr << "keypoints: " << error.what () << '\n';
    }
    return EXIT_FAILURE;
}
