#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace tessaly::test
{

/// An environment variable that has another value for as long as this lives; null unsets it.
class EnvironmentVariable
{
public:
    EnvironmentVariable (std::string variable, const char* value)
        : name (std::move (variable))
    {
        if (const char* present = std::getenv (name.c_str ()))
            before = present;
        Put (value);
    }
    ~EnvironmentVariable () { Put (before ? before->c_str () : nullptr); }
    EnvironmentVariable (const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator= (const EnvironmentVariable&) = delete;

private:
    void Put (const char* value)
    {
        if (value != nullptr)
            setenv (name.c_str (), value, 1);
        else
            unsetenv (name.c_str ());
    }

    std::string name;
    std::optional<std::string> before;
};

} // namespace tessaly::test
