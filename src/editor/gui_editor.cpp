#include "gui_editor.h"

#include "effect_wrapper.h"
#include "parameter_storage_base.h"

namespace tessaly
{

namespace
{

constexpr std::uint32_t kTooltipDelayMs = 1000;

/// The place of an image that could not be had.
class MissingBitmapImp final : public ZBitmapImp
{
public:
    explicit MissingBitmapImp (std::string_view imageName)
        : name (imageName)
    {
    }
    const std::string& GetName () const override { return name; }
    std::uint32_t GetWidth () const override { return 0; }
    std::uint32_t GetHeight () const override { return 0; }

private:
    std::string name;
};

template <typename T>
T Asked (ZEditorWrapper& wrapper, std::int32_t kind, T otherwise)
{
    auto answer = otherwise;
    return wrapper.GetInfo (kind, &answer) ? answer : otherwise;
}

} // namespace

ZGuiEditor::ZGuiEditor (ZEditorWrapper& surroundings)
    : wrapper (surroundings)
    , uiThread (std::this_thread::get_id ())
{
}

ZGuiEditor::~ZGuiEditor ()
{
    ReleasePanes ();
}

void ZGuiEditor::MoveTo (ZPoint origin)
{
    if (rootView != nullptr)
        rootView->MoveTo (origin);
}

ZPoint ZGuiEditor::GetOrigin () const
{
    return rootView != nullptr ? rootView->GetPosition () : ZPoint{};
}

void ZGuiEditor::SetSize (std::int32_t newWidth, std::int32_t newHeight)
{
    width = newWidth;
    height = newHeight;
    if (!IsOpen ())
        return;
    const auto origin = rootView->GetPosition ();
    rootView->SetFrame ({ origin.x, origin.y, origin.x + width, origin.y + height });
    wrapper.ResizeTo (width, height);
}

void ZGuiEditor::GetSize (std::int32_t& outWidth, std::int32_t& outHeight) const
{
    outWidth = width;
    outHeight = height;
}

void ZGuiEditor::Open (ZPoint origin)
{
    if (IsOpen ())
        return;
    uiThread.store (std::this_thread::get_id (), std::memory_order_relaxed);
    CarryOutEvents (); // before the effect is read, so that nothing old comes in the first tick
    storage = Asked<ZParameterStorageBase*> (wrapper, kCodeStorage, nullptr);
    meterSource = Asked<ZVuBuffer*> (wrapper, kCodeVuBuffer, nullptr);
    rootView = AddView (std::make_unique<ZView> (this, ZRect{}));
    CreateControls ();
    rootView->FitToPanes ();
    width = rootView->GetFrame ().Width ();
    height = rootView->GetFrame ().Height ();
    rootView->MoveTo (origin);
    ShowAllParameters ();
    ReadEffect ();
    open = true;
    Invalidate (true);
}

void ZGuiEditor::ShowAllParameters ()
{
    if (storage == nullptr)
        return;
    storage->GetValues (currentValues);
    lastValues = currentValues;
    for (std::size_t i = 0; i < currentValues.size (); ++i)
        ParameterChanged (static_cast<std::int32_t> (i), currentValues[i]);
}

void ZGuiEditor::ReadEffect ()
{
    OnSampleRate (Asked (wrapper, kCodeSampleRate, 44100.0));
    OnBlockSize (Asked (wrapper, kCodeBlockSize, std::int32_t{ 1024 }));
    OnBypass (Asked (wrapper, kCodeBypass, false));
    OnMeterArgument (Asked (wrapper, kCodeMeterArgument, std::int32_t{ 0 }));
}

void ZGuiEditor::Close ()
{
    if (!IsOpen ())
        return;
    open = false;
    HideTooltip ();
    DestroyControls ();
    ReleasePanes ();
}

void ZGuiEditor::ReleasePanes ()
{
    open = false;
    for (auto** pane : { &modalPane, &capturePane, &hoverPane, &focusPane, &pressedPane })
        *pane = nullptr;
    rootView = nullptr;
    storage = nullptr;
    meterSource = nullptr;
    controls.RemoveAll ();
    meters.RemoveAll ();
    views.RemoveAll ();
    bitmaps.RemoveAll ();
    tooltip.reset (); // the window that it stands in may close, too
}

void ZGuiEditor::ForgetPane (const ZPane& pane)
{
    for (auto** held : { &modalPane, &capturePane, &hoverPane, &focusPane, &pressedPane })
        if (*held == &pane)
            *held = nullptr;
    if (rootView == &pane)
        rootView = nullptr;
    if (tooltip != nullptr && tooltip->GetPane () == &pane)
        tooltip->Exit ();
    for (auto* collection : { &controls, &meters })
        for (std::int32_t i = collection->GetCount () - 1; i >= 0; --i)
            if (collection->At (i) == &pane)
                collection->Remove (collection->At (i));
}

void ZGuiEditor::RemoveChildren (const ZView& view)
{
    for (auto i = view.GetPaneCount () - 1; i >= 0; --i)
    {
        auto* child = view.GetPane (i);
        if (const auto* inner = dynamic_cast<ZView*> (child))
            RemoveChildren (*inner);
        views.Remove (child); // nothing if another pane owns it, as a hover view its layers
    }
}

bool ZGuiEditor::Remove (ZPane* pane)
{
    if (!views.Contains (pane))
        return false;
    if (const auto* view = dynamic_cast<ZView*> (pane))
        RemoveChildren (*view);
    views.Remove (pane); // its end does the rest
    Invalidate (true);   // what it covered has to appear, an open field or menu of it included
    return true;
}

bool ZGuiEditor::Attach (ZControl& control)
{
    if (!controls.Add (&control))
        return false;
    control.SetStorage (storage);
    control.AddListener (this);
    return true;
}

ZBitmap* ZGuiEditor::GetBitmap (std::string_view name)
{
    if (auto* cached = bitmaps.FindByName (name))
        return cached;
    auto image = wrapper.CreateBitmap (name);
    if (image == nullptr)
        image = std::make_unique<MissingBitmapImp> (name);
    bitmaps.Add (std::make_unique<ZBitmap> (std::move (image)));
    return bitmaps.At (bitmaps.GetCount () - 1);
}

void ZGuiEditor::CreateTooltip ()
{
    if (tooltip == nullptr)
        tooltip = std::make_unique<ZTooltip> (wrapper.CreateTooltipImp (), kTooltipDelayMs);
}

void ZGuiEditor::ShowTooltip (ZPane& pane)
{
    if (tooltip != nullptr)
        tooltip->Enter (pane);
}

void ZGuiEditor::HideTooltip ()
{
    if (tooltip != nullptr)
        tooltip->Exit ();
}

void ZGuiEditor::SetValueById (std::int32_t id, float value)
{
    for (std::int32_t i = 0; i < controls.GetCount (); ++i) // by index: a control may leave while it is told
        controls.At (i)->SetValueById (id, value);
}

void ZGuiEditor::ShowById (std::int32_t id)
{
    for (auto* control : controls)
        control->ShowById (id);
}

void ZGuiEditor::HideById (std::int32_t id)
{
    for (auto* control : controls)
        control->HideById (id);
}

void ZGuiEditor::SetDirtyById (std::int32_t id, bool on)
{
    for (auto* control : controls)
        control->SetDirtyById (id, on);
}

void ZGuiEditor::SetActiveById (std::int32_t id, bool on)
{
    for (auto* control : controls)
        control->SetActiveById (id, on);
}

void ZGuiEditor::SetMouseEnabledById (std::int32_t id, bool on)
{
    for (auto* control : controls)
        control->SetMouseEnabledById (id, on);
}

} // namespace tessaly
