#include "strip_in_host.h"

using namespace tessaly;
using namespace tessaly::test;

TEST_CASE ("The one factory offers the processor first, then the controller that it names, under the ids of all time")
{
    const auto& factory = LoadedBundle ().Factory ();
    CHECK (factory.info ().vendor () == "Arrowmere Sound Works");
    CHECK (factory.info ().flags () == Steinberg::PFactoryInfo::kUnicode);
    const auto classes = factory.classInfos ();
    REQUIRE (classes.size () == 2);
    CHECK (classes[0].category () == "Audio Module Class");
    CHECK (classes[0].name () == "Tessaly Bench [m]");
    CHECK (classes[0].subCategoriesString () == "Fx|Dynamics");
    CHECK (classes[0].version () == "1.1.2.4");
    CHECK (classes[0].sdkVersion () == "VST 3.5.0");
    CHECK (classes[0].classFlags () == Steinberg::Vst::kDistributable);
    CHECK (classes[1].category () == "Component Controller Class");
    CHECK (classes[1].name () == "Tessaly Bench [m] Controller");
    CHECK (classes[1].classFlags () == 0);
    // "VST" or "VSE", "cstM", "tessaly r" in ASCII codes.
    CHECK (classes[0].ID ().toString () == "5653546373744D74657373616C792072");
    CHECK (classes[1].ID ().toString () == "5653456373744D74657373616C792072");

    StripInHost strip;
    Steinberg::TUID id{};
    REQUIRE (strip.instance.Component ().getControllerClassId (id) == Steinberg::kResultOk);
    CHECK (VST3::UID::fromTUID (id) == classes[1].ID ());
    CHECK (host::Bundle (TESSALY_BUNDLE).Factory ().get () == factory.get ());
}
