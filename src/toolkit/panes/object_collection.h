#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tessaly
{

/// A growable row of objects, each in it once. The pointer type says who owns them: with plain pointers somebody else
/// does, with unique_ptr the collection. Null and absent items are refused with false, -1 or null.
template <typename T, typename Pointer = T*>
class ZTemplateObjectCollection
{
public:
    ZTemplateObjectCollection () = default;
    ~ZTemplateObjectCollection () { RemoveAll (); }
    ZTemplateObjectCollection (const ZTemplateObjectCollection&) = delete;
    ZTemplateObjectCollection& operator= (const ZTemplateObjectCollection&) = delete;

    T* At (std::int32_t index) const { return std::to_address (items[static_cast<std::size_t> (index)]); } ///< in range

    bool Add (Pointer item)
    {
        if (Contains (std::to_address (item)) || item == nullptr)
            return false;
        items.push_back (std::move (item));
        return true;
    }

    /// @return what the collection held, which keeps or ends the object with its owner; null if it was not there
    Pointer Remove (const T* item)
    {
        const auto index = IndexOf (item);
        if (index < 0)
            return nullptr;
        const auto place = items.begin () + index;
        Pointer removed = std::move (*place);
        items.erase (place);
        return removed;
    }

    /// From the last to the first: what ends may still look at what was there before it.
    void RemoveAll ()
    {
        while (!items.empty ())
            Remove (At (GetCount () - 1));
    }

    bool Contains (const T* item) const { return IndexOf (item) >= 0; }
    std::int32_t GetCount () const { return static_cast<std::int32_t> (items.size ()); }

    std::int32_t IndexOf (const T* item) const
    {
        if (item == nullptr)
            return -1;
        const auto found = std::find_if (items.begin (), items.end (),
                                         [item] (const Pointer& held) { return std::to_address (held) == item; });
        return found == items.end () ? -1 : static_cast<std::int32_t> (found - items.begin ());
    }

    T* Get (std::int32_t index) const { return index >= 0 && index < GetCount () ? At (index) : nullptr; }

    auto begin () const { return items.begin (); }
    auto end () const { return items.end (); }

private:
    std::vector<Pointer> items;
};

/// Panes, found by their id.
template <typename T, typename Pointer = T*>
class ZTemplatePaneCollection : public ZTemplateObjectCollection<T, Pointer>
{
public:
    /// The first at index `start` or later that bears the id; null without one or for a start out of range.
    T* FindById (std::int32_t id, std::int32_t start = 0) const
    {
        for (auto i = start; i >= 0 && i < this->GetCount (); ++i)
            if (this->At (i)->GetId () == id)
                return this->At (i);
        return nullptr;
    }
};

/// Bitmaps, found by their name, byte for byte.
template <typename T, typename Pointer = T*>
class ZTemplateBitmapCollection : public ZTemplateObjectCollection<T, Pointer>
{
public:
    template <typename Name>
    T* FindByName (const Name& name) const
    {
        for (std::int32_t i = 0; i < this->GetCount (); ++i)
            if (this->At (i)->GetName () == name)
                return this->At (i);
        return nullptr;
    }
};

} // namespace tessaly
