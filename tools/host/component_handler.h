#pragma once

#include "pluginterfaces/vst/ivstcontextmenu.h"
#include "pluginterfaces/vst/ivsteditcontroller.h"

#include <functional>

namespace tessaly::host
{

/// One call of a controller to its host, as it came in.
struct HandlerCall
{
    enum class Kind
    {
        beginEdit,
        performEdit,
        endEdit,
        restartComponent,
        setDirty,
        startGroupEdit,
        finishGroupEdit
    };

    Kind kind;
    Steinberg::Vst::ParamID id = Steinberg::Vst::kNoParamId; ///< of the three edit calls
    double value = 0.0;                                      ///< of performEdit, normalized
    Steinberg::int32 flags = 0;                              ///< of restartComponent; of setDirty the state
};

/// The host's side of a controller: hands every call on to a listener, on the thread it comes in on, and answers
/// kResultOk. Not reference counted: the plug-in instance owns it and takes it from the controller before it goes.
class ComponentHandler final : public Steinberg::Vst::IComponentHandler,
                               public Steinberg::Vst::IComponentHandler2,
                               public Steinberg::Vst::IComponentHandler3
{
public:
    using Listener = std::function<void (const HandlerCall&)>;
    /// @param id  null for the menu of no parameter. @return a menu that the plug-in releases, or null
    using MenuMaker = std::function<Steinberg::Vst::IContextMenu*(const Steinberg::Vst::ParamID* id)>;

    /// @param callListener      may be empty
    /// @param contextMenuMaker  empty for a host that has no context menus and does not know their interface
    explicit ComponentHandler (Listener callListener, MenuMaker contextMenuMaker = {});

    Steinberg::tresult PLUGIN_API beginEdit (Steinberg::Vst::ParamID id) override;
    Steinberg::tresult PLUGIN_API performEdit (Steinberg::Vst::ParamID id, Steinberg::Vst::ParamValue value) override;
    Steinberg::tresult PLUGIN_API endEdit (Steinberg::Vst::ParamID id) override;
    Steinberg::tresult PLUGIN_API restartComponent (Steinberg::int32 flags) override;

    Steinberg::tresult PLUGIN_API setDirty (Steinberg::TBool state) override;
    Steinberg::tresult PLUGIN_API requestOpenEditor (Steinberg::FIDString name) override;
    Steinberg::tresult PLUGIN_API startGroupEdit () override;
    Steinberg::tresult PLUGIN_API finishGroupEdit () override;

    Steinberg::Vst::IContextMenu* PLUGIN_API createContextMenu (Steinberg::IPlugView* view,
                                                                const Steinberg::Vst::ParamID* id) override;

    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID iidWanted, void** out) override;
    Steinberg::uint32 PLUGIN_API addRef () override { return 1; }
    Steinberg::uint32 PLUGIN_API release () override { return 1; }

private:
    Steinberg::tresult Report (const HandlerCall& call) const;

    Listener listener;
    MenuMaker menuMaker;
};

} // namespace tessaly::host
