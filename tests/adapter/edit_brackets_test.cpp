#include "edit_brackets.h"
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;

namespace
{

/// Edits whose host writes each call down: "b3" begins the edit of 3, "e3" ends it.
struct Brackets : EditHost
{
    void BeginHostEdit (std::uint32_t id) override { log += "b" + std::to_string (id) + " "; }
    void EndHostEdit (std::uint32_t id) override
    {
        log += "e" + std::to_string (id) + " ";
        if (comesBackIn)
            edits.EndExpired (9000);
    }
    EditBrackets edits{ *this };
    bool comesBackIn = false;
    std::string log;
};

} // namespace

TEST_CASE_FIXTURE (Brackets, "Edit brackets: timed edits end together, last first, two seconds after the last change")
{
    edits.BeginTimed (1, 1000);
    edits.BeginTimed (2, 1500);
    edits.BeginTimed (1, 2000); // a change of an open edit begins nothing, but all wait anew
    edits.EndExpired (4000);
    CHECK (log == "b1 b2 ");
    edits.EndExpired (4001);
    edits.EndExpired (9000);
    CHECK (log == "b1 b2 e2 e1 ");
}

TEST_CASE_FIXTURE (Brackets, "Edit brackets: a held edit takes a timed one over and ends it, once")
{
    edits.BeginTimed (5, 0);
    edits.BeginHeld (5, 10);
    edits.BeginTimed (5, 20); // held already
    edits.EndTimed (5);       // no timed edit of it is left
    edits.EndHeld (5);
    edits.EndHeld (5);
    CHECK (log == "b5 b5 e5 ");
}

TEST_CASE_FIXTURE (Brackets, "Edit brackets: a held edit that nobody ends expires, across the clock's wrap")
{
    edits.BeginHeld (7, 0xFFFFFF00u);
    edits.EndExpired (0xFFFFFF00u + 2000u);
    CHECK (log == "b7 ");
    edits.EndExpired (0xFFFFFF00u + 2001u);
    CHECK (log == "b7 e7 ");
}

TEST_CASE_FIXTURE (Brackets, "Edit brackets: a host that comes back in while it hears an end hears each end once")
{
    comesBackIn = true;
    edits.BeginHeld (1, 0);
    edits.BeginHeld (2, 0);
    edits.EndHeld (1);
    CHECK (log == "b1 b2 e1 e2 ");
}
