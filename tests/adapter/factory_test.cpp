#include "class_id.h"
#include "pluginterfaces/vst/ivstaudioprocessor.h"
#include "pluginterfaces/vst/ivsteditcontroller.h"
#include "strip_in_host.h"
#include <doctest/doctest.h>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

TEST_CASE ("The factory offers the processor first and the controller second, under their derived ids")
{
    const auto factory = LoadedBundle ().Factory ().get ();
    PFactoryInfo info;
    REQUIRE (factory->getFactoryInfo (&info) == kResultOk);
    CHECK (std::string (info.vendor) == "Arrowmere Sound Works");
    CHECK (info.flags == PFactoryInfo::kUnicode);
    REQUIRE (factory->countClasses () == 2);

    const FUnknownPtr<IPluginFactory2> second (factory);
    PClassInfo2 processor;
    PClassInfo2 controller;
    REQUIRE (second->getClassInfo2 (0, &processor) == kResultOk);
    REQUIRE (second->getClassInfo2 (1, &controller) == kResultOk);
    CHECK (std::string (processor.category) == "Audio Module Class");
    CHECK (std::string (processor.name) == "Tessaly Bench [m]");
    CHECK (std::string (processor.subCategories) == "Fx|Dynamics");
    CHECK (std::string (processor.version) == "1.1.2.4");
    CHECK (std::string (processor.sdkVersion) == "VST 3.5.0");
    CHECK (processor.classFlags == Vst::kDistributable);
    CHECK (std::string (controller.category) == "Component Controller Class");
    CHECK (std::string (controller.name) == "Tessaly Bench [m] Controller");
    CHECK (controller.classFlags == 0);

    // "VST" or "VSE", "cstM", "tessaly r" in ASCII codes.
    char text[33]{};
    FUID::fromTUID (processor.cid).toString (text);
    CHECK (std::string (text) == "5653546373744D74657373616C792072");
    FUID::fromTUID (controller.cid).toString (text);
    CHECK (std::string (text) == "5653456373744D74657373616C792072");
}

TEST_CASE ("A class id pads a short name and lower-cases letters only")
{
    char text[33]{};
    MakeClassId (0x41424344, "Ab1Z", false).toString (text);
    CHECK (std::string (text) == "56535441424344616231"
                                 "7A0000000000");
}

TEST_CASE ("The processor names its controller and the host gets one factory however often it asks")
{
    StripInHost strip;
    TUID id{};
    REQUIRE (strip.instance.Component ().getControllerClassId (id) == kResultOk);
    CHECK (FUID::fromTUID (id) == ControllerClassId ());

    const host::Bundle again{ TESSALY_BUNDLE };
    CHECK (again.Factory ().get ().get () == LoadedBundle ().Factory ().get ().get ());
}
