#include "script.h"

#include "input.h"
#include "offscreen_window.h"
#include "script_error.h"
#include "text.h"
#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <utility>

namespace tessaly::stage
{

namespace
{

constexpr double kLongestWait = 60000.0; // milliseconds
constexpr double kFarthest = 10000.0;    // pixels, notches
constexpr std::int32_t kDragStep = 4;    // pixels

template <typename Value>
using Word = std::pair<std::string_view, Value>;

constexpr std::array kModifiers{ Word<std::int32_t>{ "shift", kShift }, Word<std::int32_t>{ "control", kControl },
                                 Word<std::int32_t>{ "alt", kAlt }, Word<std::int32_t>{ "command", kCommand } };

constexpr std::array kKeys{ Word<std::int32_t>{ "return", kKeyReturn }, Word<std::int32_t>{ "escape", kKeyEscape },
                            Word<std::int32_t>{ "left", kKeyLeft },     Word<std::int32_t>{ "right", kKeyRight },
                            Word<std::int32_t>{ "up", kKeyUp },         Word<std::int32_t>{ "down", kKeyDown },
                            Word<std::int32_t>{ "home", kKeyHome },     Word<std::int32_t>{ "end", kKeyEnd },
                            Word<std::int32_t>{ "pageup", kKeyPageUp }, Word<std::int32_t>{ "pagedown", kKeyPageDown },
                            Word<std::int32_t>{ "back", kKeyBack },     Word<std::int32_t>{ "delete", kKeyDelete } };

template <typename Table>
const typename Table::value_type* FindWord (const Table& table, std::string_view name)
{
    const auto found =
        std::find_if (table.begin (), table.end (), [name] (const auto& word) { return word.first == name; });
    return found != table.end () ? &*found : nullptr;
}

/// The words of one order, taken from the front.
class Order
{
public:
    explicit Order (std::string_view line)
        : rest (Trimmed (line))
    {
    }

    bool IsEmpty () const { return rest.empty (); }
    std::string_view Rest () { return std::exchange (rest, {}); }
    std::string_view Next (const char* what)
    {
        if (rest.empty ())
            throw ScriptError (std::string (what) + " is missing");
        const auto end = std::min (rest.find_first_of (" \t"), rest.size ());
        const auto word = rest.substr (0, end);
        rest = Trimmed (rest.substr (end));
        return word;
    }
    double Number (const char* what, double least, double most)
    {
        const auto word = Next (what);
        const auto number = ToNumber (word);
        if (!number || *number < least || *number > most)
            throw ScriptError (Quoted (word) + " is not " + what + " from " + ToText (least, 0) + " to " +
                               ToText (most, 0));
        return *number;
    }
    std::int32_t Pixels () { return static_cast<std::int32_t> (Number ("a number", -kFarthest, kFarthest)); }
    ZPoint Offset () ///< two numbers, or nothing
    {
        if (rest.empty () || (rest[0] != '-' && rest[0] != '+' && (rest[0] < '0' || rest[0] > '9')))
            return {};
        const auto x = Pixels ();
        return { x, Pixels () };
    }
    std::int32_t Modifiers () ///< the rest
    {
        std::int32_t bits = 0;
        while (!rest.empty ())
        {
            const auto word = Next ("a modifier");
            const auto* modifier = FindWord (kModifiers, word);
            if (modifier == nullptr)
                throw ScriptError (Quoted (word) + " is no modifier");
            bits |= modifier->second;
        }
        return bits;
    }
    bool Skip (std::string_view word)
    {
        if (rest.substr (0, std::min (rest.find_first_of (" \t"), rest.size ())) != word)
            return false;
        Next ("a word");
        return true;
    }
    void ExpectEnd () const
    {
        if (!rest.empty ())
            throw ScriptError (Quoted (rest) + " is too much");
    }
    static std::string Quoted (std::string_view word) { return "\"" + std::string (word) + "\""; }

private:
    std::string_view rest;
};

/// Carries orders out.
class Player
{
public:
    Player (ScriptStage& played, const std::function<void (const std::string&)>& snapped)
        : stage (played)
        , window (played.Window ())
        , onSnap (snapped)
    {
    }

    void Carry (std::string_view line)
    {
        Order order (line);
        if (order.IsEmpty ())
            return;
        const auto name = order.Next ("an order");
        const auto* known = FindWord (kOrders, name);
        if (known == nullptr)
            throw ScriptError ("there is no order " + Order::Quoted (name));
        (this->*known->second) (order);
        order.ExpectEnd ();
    }

private:
    using Act = void (Player::*) (Order&);
    static const std::array<Word<Act>, 13> kOrders;

    ZPoint PointOf (Order& order) const
    {
        const auto name = order.Next ("a place");
        if (const auto rect = stage.PlaceOf (name))
            return ZPoint{ (rect->left + rect->right) / 2, (rect->top + rect->bottom) / 2 } + order.Offset ();
        throw ScriptError ("there is no place " + Order::Quoted (name));
    }
    void Click (ZPoint point, std::int32_t modifiers)
    {
        if (window.Pointer () != point)
            window.Point (point);
        window.Press (kLeftButton, modifiers);
        window.Release ();
    }

    void DoPoint (Order& order) { window.Point (PointOf (order)); }
    void DoPress (Order& order)
    {
        const auto button = order.Skip ("right") ? kRightButton : kLeftButton;
        window.Press (button, order.Modifiers ());
    }
    void DoDrag (Order& order)
    {
        const auto x = order.Pixels ();
        const auto y = order.Pixels ();
        const auto start = window.Pointer ();
        const auto steps = std::max ((std::max (std::abs (x), std::abs (y)) + kDragStep - 1) / kDragStep, 1);
        for (std::int32_t i = 1; i <= steps; ++i)
            window.Point (start + ZPoint{ x * i / steps, y * i / steps });
    }
    void DoRelease (Order& /*order*/) { window.Release (); }
    void DoClick (Order& order)
    {
        const auto point = PointOf (order);
        Click (point, order.Modifiers ());
    }
    void DoDouble (Order& order)
    {
        const auto point = PointOf (order);
        Click (point, 0);
        Click (point, 0);
    }
    void DoWheel (Order& order) { window.Wheel (order.Pixels ()); }
    void DoKey (Order& order)
    {
        const auto name = order.Next ("a key");
        const auto* key = FindWord (kKeys, name);
        if (key == nullptr && name.size () != 1)
            throw ScriptError ("there is no key " + Order::Quoted (name));
        const auto modifiers = order.Modifiers ();
        if (key != nullptr)
            window.Key ({ 0, modifiers, key->second });
        else
            window.Key ({ name[0], modifiers, kKeyNone });
    }
    void DoType (Order& order)
    {
        for (const char byte : order.Rest ())
            window.Key ({ byte, 0, byte == ' ' ? kKeySpace : kKeyNone });
    }
    void DoIdle (Order& order) { window.Wait (static_cast<std::uint32_t> (order.Number ("a time", 0, kLongestWait))); }
    void DoLevel (Order& order)
    {
        const auto meter = order.Number ("a meter", 0, kScriptMeters - 1);
        const auto level = order.Number ("a level", 0, 1);
        stage.SetLevel (static_cast<std::int32_t> (meter), static_cast<float> (level));
        window.Settle ();
    }
    void DoSet (Order& order)
    {
        const auto name = order.Next ("a parameter");
        stage.SetParameter (name, order.Number ("a value", -kFarthest, kFarthest));
        window.Settle ();
    }
    void DoSnap (Order& order)
    {
        const auto name = order.Next ("a name");
        if (name.find_first_not_of ("abcdefghijklmnopqrstuvwxyz0123456789-") != std::string_view::npos)
            throw ScriptError (Order::Quoted (name) + " is no name: small letters, digits and '-' only");
        onSnap (std::string (name));
    }

    ScriptStage& stage;                                     // not owned: the caller's
    OffscreenWindow& window;                                // not owned: the stage's
    const std::function<void (const std::string&)>& onSnap; // not owned: the caller's
};

const std::array<Word<Player::Act>, 13> Player::kOrders{ {
    { "point", &Player::DoPoint },
    { "press", &Player::DoPress },
    { "drag", &Player::DoDrag },
    { "release", &Player::DoRelease },
    { "click", &Player::DoClick },
    { "double", &Player::DoDouble },
    { "wheel", &Player::DoWheel },
    { "key", &Player::DoKey },
    { "type", &Player::DoType },
    { "idle", &Player::DoIdle },
    { "level", &Player::DoLevel },
    { "set", &Player::DoSet },
    { "snap", &Player::DoSnap },
} };

} // namespace

void Play (std::string_view script, ScriptStage& stage, const std::function<void (const std::string&)>& onSnap)
{
    Player player (stage, onSnap);
    for (std::int32_t number = 1; !script.empty (); ++number)
    {
        const auto end = std::min (script.find ('\n'), script.size ());
        const auto line = script.substr (0, end);
        script.remove_prefix (std::min (end + 1, script.size ()));
        try
        {
            if (Trimmed (line).substr (0, 1) != "#")
                player.Carry (line);
        }
        catch (const ScriptError& error)
        {
            throw ScriptError ("line " + std::to_string (number) + ": " + error.what ());
        }
    }
}

} // namespace tessaly::stage
