#pragma once

#include "bundle.h"
#include "component_handler.h"
#include "connection.h"
#include "named_host.h"
#include "parameter_access.h"

#include "pluginterfaces/vst/ivstaudioprocessor.h"
#include "pluginterfaces/vst/ivstcomponent.h"
#include "pluginterfaces/vst/ivstprocesscontext.h"
#include "public.sdk/source/vst/hosting/parameterchanges.h"
#include "public.sdk/source/vst/hosting/processdata.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace tessaly::host
{

/// One value of one parameter at one sample of a block.
struct ParameterPoint
{
    Steinberg::Vst::ParamID id;
    double value;                      ///< normalized
    Steinberg::int32 sampleOffset = 0; ///< from the block's first sample
};

/// One block for the main buses. Channels beyond a bus's own are not looked at; missing ones are the caller's error.
struct AudioBlock
{
    std::span<const float* const> inputs;   ///< numSamples floats each
    std::span<float* const> outputs;        ///< numSamples floats each; may be the inputs' memory
    Steinberg::int32 numSamples = 0;        ///< 0 up to the block size of Setup
    std::span<const ParameterPoint> points; ///< one queue a parameter, in the order of each one's first point
};

enum class TearDownOrder
{
    controllerFirst,
    componentFirst
};

struct InstanceOptions
{
    ConnectionKind connection = ConnectionKind::viaProxies;
    TearDownOrder tearDown = TearDownOrder::controllerFirst;
    ComponentHandler::Listener onHandlerCall = {};  ///< hears what the controller tells its host
    ComponentHandler::MenuMaker onContextMenu = {}; ///< empty: a host without context menus
};

/// A plug-in's component and controller, made from a bundle, initialized and connected. The life cycle is the SDK's:
/// Setup, Activate, Process block by block, Deactivate; and again. Everything but Process belongs to the main thread.
class PluginInstance
{
public:
    /// Makes the first audio effect of the bundle.
    /// @param hostContext  not owned: the caller, outlives the instance
    /// @throws HostError when a half is missing or refuses to initialize
    PluginInstance (const Bundle& from, NamedHost& hostContext, InstanceOptions instanceOptions = {});

    /// Ends what still runs, in the order of the options.
    ~PluginInstance ();

    PluginInstance (const PluginInstance&) = delete;
    PluginInstance& operator= (const PluginInstance&) = delete;

    /// @param mode  a Vst::ProcessModes value
    /// @throws HostError when the plug-in refuses, or is active
    void Setup (double sampleRateHz, Steinberg::int32 maxBlockSize, Steinberg::int32 mode);

    void Activate ();   ///< @throws HostError when the plug-in refuses
    void Deactivate (); ///< does nothing when not active

    /// Runs one block; the transport rolls on by its samples.
    /// @param outPoints  receives the block's output points, in the order they came; null drops them
    /// @throws HostError when the plug-in fails, or the block is longer than the one set up
    void Process (const AudioBlock& block, std::vector<ParameterPoint>* outPoints = nullptr);

    ParameterAccess Parameters () const { return ParameterAccess (*controller); }

    /// The component's state chunk. @throws HostError when the plug-in gives none
    std::vector<std::byte> SaveState () const;

    /// Hands a state chunk to the component and then to the controller, as a host does with a project.
    /// @throws HostError when the component refuses it
    void LoadState (std::span<const std::byte> state);

    Steinberg::Vst::IComponent& Component () const { return *component; }
    Steinberg::Vst::IAudioProcessor& Processor () const { return *processor; }
    Steinberg::Vst::IEditController& Controller () const { return *controller; }

private:
    void MakeComponent (NamedHost& hostContext);
    void MakeController (NamedHost& hostContext);
    void TearDown ();
    void FillInputChanges (std::span<const ParameterPoint> points);
    void ReadOutputChanges (std::vector<ParameterPoint>& points);

    Bundle bundle; // first in, last out: every pointer below leads into its library
    InstanceOptions options;
    ComponentHandler handler;
    Steinberg::IPtr<Steinberg::Vst::IComponent> component;
    Steinberg::IPtr<Steinberg::Vst::IAudioProcessor> processor;
    Steinberg::IPtr<Steinberg::Vst::IEditController> controller;
    bool componentInitialized = false;
    bool controllerInitialized = false; // false too where one object is both halves
    bool active = false;
    Connection connection;

    Steinberg::int32 maxBlockSize = 0;
    Steinberg::Vst::HostProcessData processData;
    Steinberg::Vst::ProcessContext processContext{};
    Steinberg::Vst::ParameterChanges inputChanges;
    Steinberg::Vst::ParameterChanges outputChanges;
};

} // namespace tessaly::host
