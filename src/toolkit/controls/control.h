#pragma once

#include "broadcaster.h"
#include "pane.h"
#include "parameter_records.h"
#include <cstdint>
#include <string>

namespace tessaly
{

class ZParameterStorageBase;

inline constexpr float kFineFactor = 0.25f; // of a drag with the fine modifier

/// A pane that holds one normalized value of one parameter. It never changes its value from a user's input: it works
/// out the wanted one and broadcasts it with its id; the owner writes the parameter and sets the value on every control
/// of that id. Concrete controls are a behaviour class derived from this one, which draws nothing, and drawing mix-ins.
/// Without a storage, or with an id beyond its parameters, the control works on its own fields alone.
class ZControl : public ZPane, public ZBroadcaster
{
public:
    ZControl (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId);

    void SetStorage (const ZParameterStorageBase* newStorage); ///< borrowed, or null; loads range and value
    virtual void UpdateFromStorage (std::int32_t parameterId); ///< for the own id, or kEveryPane

    // The value, normalized. Setters neither clamp nor broadcast.
    virtual void SetValue (float newValue); ///< the present one changes nothing, so nothing is painted again
    float GetValue () const { return value; }
    /// Every control hears of every id: one that shows other parameters, too, overrides this. kEveryPane has no
    /// meaning.
    virtual void SetValueById (std::int32_t controlId, float newValue);
    void SetPlainValue (float plain) { SetValue (FromPlain (plain)); }
    float GetPlainValue () const { return ToPlain (value); }
    void SetBool (bool on) { SetValue (on ? 1.0f : 0.0f); }
    bool GetBool () const { return value >= 0.5f; }
    void SetIndex (std::int32_t index);
    std::int32_t GetIndex () const;

    // A reset asks for the default value; MouseDown takes a press with the reset modifier for one
    bool MouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool ResetClick (ZEvent& event, const ZMouseInput& mouse);
    virtual bool OnResetClick (ZEvent& event, const ZMouseInput& mouse);
    void SetResetEnabled (bool on) { resetEnabled = on; }
    bool IsResetModifier (std::int32_t modifiers) const { return resetEnabled && (modifiers & kControl) != 0; }
    void SetFineEnabled (bool on) { fineEnabled = on; }
    bool IsFineModifier (std::int32_t modifiers) const { return fineEnabled && (modifiers & kShift) != 0; }

    // Range, of plain values but for the default and the step
    void SetDefault (float normalized) { defaultValue = normalized; }
    float GetDefault () const { return defaultValue; }
    void SetStep (float normalized) { step = normalized; }
    float GetStep () const { return step == 0.0f ? 0.01f : step; }
    void SetMinimum (float plain) { minimum = plain; }
    float GetMinimum () const { return minimum; }
    void SetMaximum (float plain) { maximum = plain; }
    float GetMaximum () const { return maximum; }

    // Conversions: the own function if there is one, then the storage's, then none
    void SetConverters (const ZConverterSet& set) { converters = set; }
    void SetToText (ZToText function) { converters.toText = function; }
    void SetToPlain (ZToPlain function) { converters.toPlain = function; }
    void SetFromPlain (ZToNormalized function) { converters.toNormalized = function; }
    float ToPlain (float normalized) const;
    float FromPlain (float plain) const;
    std::string GetValueText (float normalized) const { return GetPlainValueText (ToPlain (normalized)); }
    std::string GetPlainValueText (float plain) const; ///< at most 255 bytes; empty without a way to say it

    void SetKeySteps (std::int32_t small, std::int32_t large);
    std::int32_t GetSmallKeyStep () const { return smallKeyStep; }
    std::int32_t GetLargeKeyStep () const { return largeKeyStep; }

    /// A value some steps away, 0 to 1. @param factor  scales the steps, as a fine drag does
    virtual float StepValue (float normalized, std::int32_t delta, float factor) const;

    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override; ///< up, down, page up and page down step the value
    bool OnKeyRepeat (ZEvent& event, const ZKeyInput& key) override;

protected:
    const ZParameterStorageBase* GetStorage () const { return storage; }
    bool HasParameter () const;          ///< whether the storage knows the id
    bool BroadcastChange (float wanted); ///< @return false without a broadcast: for the present value and for NaN

private:
    bool StepBy (std::int32_t delta); // true if that asks for another value
    bool StepByKey (std::int32_t delta);

    const ZParameterStorageBase* storage = nullptr; // not owned: the effect's
    float value = 0.0f;
    float defaultValue = 0.0f;
    float step = 0.0f; // one over the number of positions; 0 reads as 0.01
    float minimum = 0.0f;
    float maximum = 1.0f;
    ZConverterSet converters;
    bool resetEnabled = true;
    bool fineEnabled = true;
    std::int32_t smallKeyStep = 1;
    std::int32_t largeKeyStep = 10;
};

} // namespace tessaly
