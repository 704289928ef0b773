#pragma once

#include "public.sdk/source/vst/hosting/parameterchanges.h"
#include "strip_in_host.h"

namespace tessaly::test
{

/// Both halves as a host makes them from a factory, with steps to be taken in any order.
struct LooseHalves
{
    using Factory = VST3::Hosting::PluginFactory;

    explicit LooseHalves (const Factory& factory = LoadedBundle ().Factory (),
                          const Factory::ClassInfos& classes = LoadedBundle ().Factory ().classInfos (),
                          const char* hostName = "odd host")
        : context (hostName)
        , component (factory.createInstance<Steinberg::Vst::IComponent> (classes[0].ID ()))
        , controller (factory.createInstance<Steinberg::Vst::IEditController> (classes[1].ID ()))
    {
        Begin ();
        CHECK (controller->initialize (&context) == Steinberg::kResultOk);
    }

    void Begin () { CHECK (component->initialize (&context) == Steinberg::kResultOk); }
    void End () { CHECK (component->terminate () == Steinberg::kResultOk); }
    void EndController () { CHECK (controller->terminate () == Steinberg::kResultOk); }
    void DropComponent ()
    {
        processor = nullptr;
        componentPoint = nullptr;
        component = nullptr;
    }
    void DropController ()
    {
        controllerPoint = nullptr;
        controller = nullptr;
    }

    void Connect ()
    {
        CHECK (componentPoint->connect (controllerPoint) == Steinberg::kResultOk);
        CHECK (controllerPoint->connect (componentPoint) == Steinberg::kResultOk);
    }
    void ConnectTwice () { CHECK (componentPoint->connect (controllerPoint) != Steinberg::kResultOk); }
    void Disconnect () ///< or each keeps the other for ever
    {
        componentPoint->disconnect (controllerPoint);
        controllerPoint->disconnect (componentPoint);
    }

    void SetUp ()
    {
        Steinberg::Vst::ProcessSetup setup{ Steinberg::Vst::kRealtime, Steinberg::Vst::kSample32, 64, 48000.0 };
        CHECK (processor->setupProcessing (setup) == Steinberg::kResultOk);
    }
    void On () { CHECK (component->setActive (true) == Steinberg::kResultOk); }
    void Off () { CHECK (component->setActive (false) == Steinberg::kResultOk); }
    void Play ()
    {
        MonoBlock block;
        Steinberg::Vst::ParameterChanges points;
        Steinberg::int32 position = 0;
        points.addParameterData (kMorph, position)->addPoint (0, 0.5, position); // not heard, but in Ardour
        block.data.inputParameterChanges = &points;
        CHECK (processor->process (block.data) == Steinberg::kResultOk);
        CHECK (AllFinite (block.samples));
    }

    void SetQuarter () { CHECK (controller->setParamNormalized (kDrive, 0.25) == Steinberg::kResultOk); }
    void ShowsQuarter ()
    {
        CHECK (controller->getParameterCount () == kParameterCount + 2);
        CHECK (controller->getParamNormalized (kDrive) == 0.25);
    }
    void ShowsNothing ()
    {
        CHECK (controller->getParameterCount () == 0);
        CHECK (controller->setComponentState (nullptr) == Steinberg::kResultOk);
        CHECK (controller->setParamNormalized (kMorph, 1.0) == Steinberg::kResultFalse);
    }

    host::NamedHost context;
    Steinberg::IPtr<Steinberg::Vst::IComponent> component;
    Steinberg::IPtr<Steinberg::Vst::IEditController> controller;
    Steinberg::FUnknownPtr<Steinberg::Vst::IAudioProcessor> processor{ component };
    Steinberg::FUnknownPtr<Steinberg::Vst::IConnectionPoint> componentPoint{ component };
    Steinberg::FUnknownPtr<Steinberg::Vst::IConnectionPoint> controllerPoint{ controller };
};

} // namespace tessaly::test
