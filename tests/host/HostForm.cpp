#include "host/HostForm.h"

#include <algorithm>

namespace vantik {

namespace {

constexpr int HimetricPerInch = 2540;
constexpr int TwipsPerInch = 1440;

LONG ToHimetric(double twips) noexcept {
    return static_cast<LONG>(twips * HimetricPerInch / TwipsPerInch + 0.5);
}

} // namespace

HostForm::HostForm(ControlModule& module, FormLayout layout, HostSwitches switches, FormHandlers handlers)
    : module_(module),
      layout_(std::move(layout)),
      switches_(switches),
      handlers_(std::move(handlers)),
      window_(layout_.Title, layout_.ClientSize, handlers_.Message, layout_.Parent),
      place_(ToPlacement(layout_.ControlPlace)),
      container_(MakeCom<vantik::FormContainer>(static_cast<SiteOwner&>(*this), switches_.EnumerateObjects)),
      frame_(MakeCom<vantik::FormFrame>(window_.Handle())),
      extender_(MakeCom<Extender>(static_cast<FormItem&>(*this))),
      site_(MakeCom<ControlSite>(static_cast<SiteOwner&>(*this), switches_, AmbientValues())) {}

HostForm::~HostForm() {
    Close();
    container_->Detach();
    frame_->Detach();
    extender_->Detach();
    site_->Detach();
}

IDispatch& HostForm::Control() const {
    const ComPtr<IDispatch> dispatch = control_.As<IDispatch>();
    if (!dispatch) throw HostError("there is no control on the form");
    return *dispatch.Get(); // the control itself holds it
}

HWND HostForm::ControlWindow() const {
    HWND window = nullptr;
    if (const auto object = control_.As<IOleWindow>()) object->GetWindow(&window);
    return window;
}

void HostForm::MoveControl(const RECT& pixels) {
    place_ = ToPlacement(pixels);
    SetExtent();
    ControlAsksForPlace(pixels);
}

// It gets what it asks for. A new extent makes it ask, so the extent is not set again here.
void HostForm::ControlAsksForPlace(const RECT& pixels) {
    place_ = ToPlacement(pixels);
    if (inPlace_) Check(inPlace_->SetObjectRects(&pixels, &pixels), "SetObjectRects");
}

void HostForm::DoVerb(LONG verb) {
    const auto object = control_.As<IOleObject>();
    if (!object) return;
    const RECT place = ToPixels(place_);
    Check(object->DoVerb(verb, nullptr, site_.Get(), 0, window_.Handle(), &place), "The control's verb");
}

HostedWindow& HostForm::Add(std::wstring name, HWND window) {
    windows_.push_back(
        std::make_unique<HostedWindow>(std::move(name), window, ControlExtender(), switches_.Extenders));
    return *windows_.back();
}

HostedWindow* HostForm::FindWindowNamed(std::wstring_view name) noexcept {
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const auto& each) { return each->Name() == name; });
    return found == windows_.end() ? nullptr : found->get();
}

void HostForm::Remove(const HostedWindow& window) noexcept {
    std::erase_if(windows_, [&](const auto& each) { return each.get() == &window; });
}

void HostForm::SetExtent() {
    const auto object = control_.As<IOleObject>();
    if (!object) return;
    SIZEL size = {ToHimetric(place_.Width), ToHimetric(place_.Height)};
    object->SetExtent(DVASPECT_CONTENT, &size); // a control of a fixed size refuses
}

std::vector<ComPtr<IUnknown>> HostForm::ContainedObjects() {
    std::vector<ComPtr<IUnknown>> objects;
    for (const auto& window : windows_) objects.push_back(window->Object());
    return objects;
}

std::vector<ComPtr<IUnknown>> HostForm::AllObjects() {
    std::vector<ComPtr<IUnknown>> objects = ContainedObjects();
    if (control_) objects.insert(objects.begin(), control_);
    return objects;
}

void HostForm::ControlActivated(bool active) {
    inPlace_ = active ? control_.As<IOleInPlaceObject>() : nullptr;
    if (!active) uiActive_ = false;
}

void HostForm::PropertyChanged(DISPID id) {
    if (handlers_.PropertyChanged) handlers_.PropertyChanged(id);
}

std::optional<LRESULT> HostForm::ControlMessage(HWND, UINT message, WPARAM wParam, LPARAM lParam) {
    return handlers_.ControlMessage ? handlers_.ControlMessage(message, wParam, lParam) : std::nullopt;
}

bool HostForm::ShowControlProperties() {
    const auto show = handlers_.ShowProperties; // it may end the form
    if (show) show();
    return static_cast<bool>(show);
}

void HostForm::Place(const Placement& place) { MoveControl(ToPixels(place)); }

void HostForm::Visible(bool visible) {
    visible_ = visible;
    if (const HWND window = ControlWindow()) ShowWindow(window, visible ? SW_SHOWNA : SW_HIDE);
}

} // namespace vantik
