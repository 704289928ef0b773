#pragma once

#include "pluginterfaces/base/smartpointer.h"
#include "pluginterfaces/vst/ivstcontextmenu.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessaly::host
{

/// What was in a context menu when it was shown.
struct ShownMenu
{
    std::optional<Steinberg::Vst::ParamID> parameter; ///< none for the menu of the empty panel
    std::vector<std::string> items;                   ///< names in UTF-8, separators and groups included
    std::vector<int> flags;                           ///< IContextMenuItem::Flags of each
    Steinberg::UCoord x = 0;
    Steinberg::UCoord y = 0;
};

/// A context menu without a picture: it shows itself to a function, which picks an item in the user's place.
/// Reference counted from 1, as a plug-in gets it. Main thread.
class ContextMenu final : public Steinberg::Vst::IContextMenu
{
public:
    /// @return the item's index; anything that is no index picks nothing
    using Chooser = std::function<int (const ShownMenu&)>;

    /// @param id  null for no parameter
    ContextMenu (const Steinberg::Vst::ParamID* id, Chooser itemChooser);

    Steinberg::int32 PLUGIN_API getItemCount () override;
    Steinberg::tresult PLUGIN_API getItem (Steinberg::int32 index, Item& item,
                                           Steinberg::Vst::IContextMenuTarget** target) override;
    Steinberg::tresult PLUGIN_API addItem (const Item& item, Steinberg::Vst::IContextMenuTarget* target) override;
    Steinberg::tresult PLUGIN_API removeItem (const Item& item, Steinberg::Vst::IContextMenuTarget* target) override;
    /// Returns after the chosen item was executed, as a menu that waits for the user does.
    Steinberg::tresult PLUGIN_API popup (Steinberg::UCoord x, Steinberg::UCoord y) override;

    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID wanted, void** out) override;
    Steinberg::uint32 PLUGIN_API addRef () override { return ++references; }
    Steinberg::uint32 PLUGIN_API release () override;

private:
    ~ContextMenu () = default;

    struct Entry
    {
        Item item;
        Steinberg::IPtr<Steinberg::Vst::IContextMenuTarget> target; ///< may be null
    };

    std::optional<Steinberg::Vst::ParamID> parameter;
    Chooser chooser;
    std::vector<Entry> entries;
    Steinberg::uint32 references = 1;
};

} // namespace tessaly::host
