#include "loaded_strip.h"
#include "parameter_names.h"
#include "render_error.h"
#include "typed_value.h"

#include <cmath>
#include <doctest/doctest.h>
#include <string>

using namespace tessaly::render;
using tessaly::test::LoadedStrip;

namespace
{

struct TypedValues : LoadedStrip
{
    ParameterNames names{ parameters };

    double Step (const std::string& name, const std::string& text) const
    {
        const auto& entry = names.Find (name);
        return parameters.ToPlain (entry.info.id, TypedValue (parameters, entry, text));
    }

    std::string Refusal (const std::string& name, const std::string& text) const
    {
        try
        {
            TypedValue (parameters, names.Find (name), text);
        }
        catch (const RenderError& error)
        {
            return error.what ();
        }
        return "";
    }
};

bool Contains (const std::string& text, const std::string& part)
{
    return text.find (part) != std::string::npos;
}

} // namespace

TEST_CASE_FIXTURE (TypedValues, "What a parameter shows at any step can be typed and leads back to that step")
{
    CHECK (names.Entries ().size () == 22);
    for (const auto& entry : names.Entries ())
    {
        const auto id = entry.info.id;
        const double last = parameters.ToPlain (id, 1.0);
        for (double step = parameters.ToPlain (id, 0.0); step <= last; ++step)
        {
            const double normalized = parameters.ToNormalized (id, step);
            const std::string shown = ValueText (parameters, entry.info, normalized);
            INFO (entry.name << " at step " << step << " shows " << shown);
            CHECK (TypedValue (parameters, entry, shown) == normalized);
        }
    }
}

TEST_CASE_FIXTURE (TypedValues, "Values are typed as on the panel")
{
    // Preferred numbers R40 from 16 Hz: the 84th after it is 2000 Hz, the 60th 500 Hz.
    CHECK (Step ("Mid F", "2k") == 84);
    CHECK (Step ("Mid F", " 2 000 ") == 84);
    CHECK (Step ("High F", "100") == 60); // the scale's low end
    CHECK (Step ("Mid G", "-3") == 150);  // 0.1 dB a step, 0 dB at 180
    CHECK (Step ("Mid G", "+99") == 360);
    CHECK (Step ("Knee", "hard") == 2);
    CHECK (Step ("Knee", "1") == 1);
    CHECK (Step ("Bypass", "ON") == 1);
}

TEST_CASE_FIXTURE (TypedValues, "The two parameters without a title are set by names of our own, from 0 to 1")
{
    CHECK (Step ("Drive Offset", "0.5") == 100);
    CHECK (Step ("MAKEUP  AMOUNT", "0.25") == 50);
    CHECK (Contains (Refusal ("Makeup Amount", "1.5"), "0.000 to 1.000"));
}

TEST_CASE_FIXTURE (TypedValues, "A text that is no value is refused with what is accepted")
{
    CHECK (Refusal ("Mid F", "2 kHz") ==
           "\"2 kHz\" is no value for \"Mid F\", which takes a number from 20.0 to 20.0k Hz, k standing for thousands");
    CHECK (Contains (Refusal ("Knee", "Medium"), "one of Soft, Middle, Hard"));
    for (const auto& [name, text] :
         { std::pair{ "Knee", "3" }, { "Morph", "121" }, { "Mid F", "inf" }, { "Attack", "" }, { "Release", "0,5" } })
        CHECK (Contains (Refusal (name, text), "no value"));
}

TEST_CASE_FIXTURE (TypedValues, "An unknown name is refused with the nearest ones")
{
    CHECK (Contains (Refusal ("Atack", "1"), "the nearest are \"Attack\""));
    CHECK (Contains (Refusal ("VU", "1"), "no parameter \"VU\"")); // a meter is not to be set
    CHECK (Contains (Refusal ("", "1"), "no parameter \"\""));
}
