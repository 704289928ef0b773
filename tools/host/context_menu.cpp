#include "context_menu.h"

#include "public.sdk/source/vst/utility/stringconvert.h"

namespace tessaly::host
{

using namespace Steinberg;

ContextMenu::ContextMenu (const Vst::ParamID* id, Chooser itemChooser)
    : chooser (std::move (itemChooser))
{
    if (id)
        parameter = *id;
}

int32 PLUGIN_API ContextMenu::getItemCount ()
{
    return static_cast<int32> (entries.size ());
}

tresult PLUGIN_API ContextMenu::getItem (int32 index, Item& item, Vst::IContextMenuTarget** target)
{
    if (index < 0 || index >= getItemCount ())
        return kInvalidArgument;
    const Entry& entry = entries[static_cast<std::size_t> (index)];
    item = entry.item;
    if (target)
        *target = entry.target;
    return kResultOk;
}

tresult PLUGIN_API ContextMenu::addItem (const Item& item, Vst::IContextMenuTarget* target)
{
    entries.push_back ({ item, target });
    return kResultOk;
}

tresult PLUGIN_API ContextMenu::removeItem (const Item& item, Vst::IContextMenuTarget* target)
{
    const auto isIt = [&] (const Entry& entry) { return entry.item.tag == item.tag && entry.target == target; };
    return std::erase_if (entries, isIt) != 0 ? kResultOk : kResultFalse;
}

tresult PLUGIN_API ContextMenu::popup (UCoord x, UCoord y)
{
    ShownMenu shown{ .parameter = parameter, .items = {}, .flags = {}, .x = x, .y = y };
    for (const Entry& entry : entries)
    {
        shown.items.push_back (VST3::StringConvert::convert (entry.item.name));
        shown.flags.push_back (entry.item.flags);
    }
    const int index = chooser (shown);
    if (index < 0 || index >= getItemCount ())
        return kResultOk;
    const Entry chosen = entries[static_cast<std::size_t> (index)]; // the menu may change while it is executed
    if (chosen.target)
        chosen.target->executeMenuItem (chosen.item.tag);
    return kResultOk;
}

tresult PLUGIN_API ContextMenu::queryInterface (const TUID wanted, void** out)
{
    QUERY_INTERFACE (wanted, out, FUnknown::iid, IContextMenu)
    QUERY_INTERFACE (wanted, out, IContextMenu::iid, IContextMenu)
    *out = nullptr;
    return kNoInterface;
}

uint32 PLUGIN_API ContextMenu::release ()
{
    const uint32 left = --references;
    if (left == 0)
        delete this;
    return left;
}

} // namespace tessaly::host
