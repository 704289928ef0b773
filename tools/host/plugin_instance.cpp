#include "plugin_instance.h"

#include "host_error.h"

#include "public.sdk/source/vst/utility/memoryibstream.h"

#include <array>

namespace tessaly::host
{

using namespace Steinberg;

namespace
{

constexpr double kTempoBpm = 120.0;

void SetBusChannels (Vst::AudioBusBuffers* buses, int32 numBuses, auto channels)
{
    if (numBuses == 0)
        return;
    if (channels.size () < static_cast<std::size_t> (buses[0].numChannels))
        throw HostError ("the block has fewer channels than the plug-in's bus");
    // The SDK's type is not const for inputs, though no plug-in may write to them.
    for (int32 i = 0; i < buses[0].numChannels; ++i)
        buses[0].channelBuffers32[i] = const_cast<float*> (channels[static_cast<std::size_t> (i)]);
}

/// Two halves may be one object; its FUnknown then tells.
bool SameObject (FUnknown* a, FUnknown* b)
{
    return FUnknownPtr<FUnknown> (a).get () == FUnknownPtr<FUnknown> (b).get ();
}

} // namespace

PluginInstance::PluginInstance (const Bundle& from, NamedHost& hostContext, InstanceOptions instanceOptions)
    : bundle (from)
    , options (std::move (instanceOptions))
    , handler (options.onHandlerCall, options.onContextMenu)
{
    try
    {
        MakeComponent (hostContext);
        MakeController (hostContext);
    }
    catch (...)
    {
        TearDown ();
        throw;
    }
    controller->setComponentHandler (&handler);
    connection.Connect (component, controller, options.connection);
    processData.prepare (*component, 0, Vst::kSample32);
}

PluginInstance::~PluginInstance ()
{
    Deactivate ();
    TearDown ();
}

void PluginInstance::MakeComponent (NamedHost& hostContext)
{
    const auto effect = bundle.FirstAudioEffect ();
    bundle.Factory ().setHostContext (&hostContext);
    component = bundle.Factory ().createInstance<Vst::IComponent> (effect.ID ());
    if (!component)
        throw HostError ("the plug-in \"" + effect.name () + "\" makes no component");
    if (component->initialize (&hostContext) != kResultOk)
        throw HostError ("the component of the plug-in \"" + effect.name () + "\" does not initialize");
    componentInitialized = true;
    processor = FUnknownPtr<Vst::IAudioProcessor> (component);
    if (!processor)
        throw HostError ("the plug-in \"" + effect.name () + "\" processes no audio");
}

void PluginInstance::MakeController (NamedHost& hostContext)
{
    controller = FUnknownPtr<Vst::IEditController> (component);
    if (controller)
        return;
    TUID classId{};
    if (component->getControllerClassId (classId) == kResultOk)
        controller = bundle.Factory ().createInstance<Vst::IEditController> (VST3::UID::fromTUID (classId));
    if (!controller)
        throw HostError ("the plug-in \"" + bundle.Path ().string () + "\" makes no controller");
    if (controller->initialize (&hostContext) != kResultOk)
        throw HostError ("the controller of the plug-in \"" + bundle.Path ().string () + "\" does not initialize");
    controllerInitialized = !SameObject (component, controller);
}

void PluginInstance::TearDown ()
{
    processData.unprepare ();
    connection.Disconnect ();
    if (controller)
        controller->setComponentHandler (nullptr);

    const auto endController = [this]
    {
        if (controllerInitialized)
            controller->terminate ();
        controller = nullptr;
    };
    const auto endComponent = [this]
    {
        if (componentInitialized)
            component->terminate ();
        processor = nullptr;
        component = nullptr;
    };
    if (options.tearDown == TearDownOrder::controllerFirst)
    {
        endController ();
        endComponent ();
    }
    else
    {
        endComponent ();
        endController ();
    }
}

void PluginInstance::Setup (double sampleRateHz, int32 newMaxBlockSize, int32 mode)
{
    if (active)
        throw HostError ("an active plug-in cannot be set up");
    Vst::ProcessSetup setup{ mode, Vst::kSample32, newMaxBlockSize, sampleRateHz };
    if (processor->setupProcessing (setup) != kResultOk)
        throw HostError ("the plug-in refuses a sample rate of " + std::to_string (sampleRateHz) +
                         " Hz with blocks of " + std::to_string (newMaxBlockSize) + " samples");
    maxBlockSize = newMaxBlockSize;
    processData.processMode = mode;
    processContext = {};
    processContext.sampleRate = sampleRateHz;
    processContext.tempo = kTempoBpm;
    processContext.state = Vst::ProcessContext::kPlaying | Vst::ProcessContext::kTempoValid;
}

void PluginInstance::Activate ()
{
    component->activateBus (Vst::kAudio, Vst::kInput, 0, true);
    component->activateBus (Vst::kAudio, Vst::kOutput, 0, true);
    if (component->setActive (true) != kResultOk)
        throw HostError ("the plug-in does not activate");
    active = true;
    processor->setProcessing (true); // plug-ins that have nothing to do here answer "not implemented"
}

void PluginInstance::Deactivate ()
{
    if (!active)
        return;
    processor->setProcessing (false);
    component->setActive (false);
    active = false;
}

void PluginInstance::Process (const AudioBlock& block, std::vector<ParameterPoint>* outPoints)
{
    if (block.numSamples < 0 || block.numSamples > maxBlockSize)
        throw HostError ("a block of " + std::to_string (block.numSamples) + " samples, where " +
                         std::to_string (maxBlockSize) + " are set up");

    SetBusChannels (processData.inputs, processData.numInputs, block.inputs);
    SetBusChannels (processData.outputs, processData.numOutputs, block.outputs);
    FillInputChanges (block.points);
    outputChanges.clearQueue ();
    processData.numSamples = block.numSamples;
    processData.processContext = &processContext;
    processData.inputParameterChanges = &inputChanges;
    processData.outputParameterChanges = &outputChanges;
    if (processor->process (processData) != kResultOk)
        throw HostError ("the plug-in fails to process a block");

    processContext.projectTimeSamples += block.numSamples;
    if (outPoints)
        ReadOutputChanges (*outPoints);
}

void PluginInstance::FillInputChanges (std::span<const ParameterPoint> points)
{
    inputChanges.clearQueue ();
    for (const ParameterPoint& point : points)
    {
        int32 ignored = 0;
        if (auto* queue = inputChanges.addParameterData (point.id, ignored))
            queue->addPoint (point.sampleOffset, point.value, ignored);
    }
}

void PluginInstance::ReadOutputChanges (std::vector<ParameterPoint>& points)
{
    points.clear ();
    for (int32 i = 0; i < outputChanges.getParameterCount (); ++i)
    {
        auto* queue = outputChanges.getParameterData (i);
        for (int32 j = 0; j < queue->getPointCount (); ++j)
        {
            ParameterPoint point{ queue->getParameterId (), 0.0, 0 };
            if (queue->getPoint (j, point.sampleOffset, point.value) == kResultOk)
                points.push_back (point);
        }
    }
}

std::vector<std::byte> PluginInstance::SaveState () const
{
    ResizableMemoryIBStream stream;
    if (component->getState (&stream) != kResultOk)
        throw HostError ("the plug-in gives no state");
    // Read back to the end: a plug-in may leave the stream anywhere.
    stream.rewind ();
    std::vector<std::byte> state;
    std::array<std::byte, 1024> part{};
    int32 count = 0;
    while (stream.read (part.data (), static_cast<int32> (part.size ()), &count) == kResultOk && count > 0)
        state.insert (state.end (), part.begin (), part.begin () + count);
    return state;
}

void PluginInstance::LoadState (std::span<const std::byte> state)
{
    ResizableMemoryIBStream stream (state.size ());
    if (!state.empty ())
        stream.write (const_cast<std::byte*> (state.data ()), static_cast<int32> (state.size ()), nullptr);
    stream.rewind ();
    if (component->setState (&stream) != kResultOk)
        throw HostError ("the plug-in refuses the state");
    stream.rewind ();
    controller->setComponentState (&stream);
}

} // namespace tessaly::host
