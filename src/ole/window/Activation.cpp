#include "ole/window/Activation.h"

#include "ole/com/Identifiers.h"
#include "ole/control/Control.h"

namespace vantik {

namespace {

SIZE SizeOf(const RECT& area) noexcept { return {area.right - area.left, area.bottom - area.top}; }

} // namespace

Activation::Activation(Control& control) noexcept
    : control_(control), messages_(control, *this), window_(control, messages_) {}

// An activation that comes to no end, be it by an error, is undone.
class Activation::Attempt {
public:
    explicit Attempt(Activation& activation) noexcept : activation_(activation) {}
    ~Attempt() {
        if (failed_) activation_.InPlaceDeactivate();
    }
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;

    HRESULT Succeeded() noexcept {
        failed_ = !activation_.IsHere();
        return failed_ ? E_FAIL : S_OK;
    }

private:
    Activation& activation_;
    bool failed_ = true;
};

HRESULT Activation::InPlaceActivate() {
    if (IsHere()) return S_OK;
    if (leaving_) return E_UNEXPECTED;
    control_.Document.Need();
    const HRESULT entered = EnterSite();
    if (entered != S_OK) return entered;
    Attempt attempt(*this);
    const HRESULT made = MakeWindow();
    if (FAILED(made)) return made;
    control_.Engine.UserControl_WindowCreated();
    if (const ComPtr<IOleClientSite> site(control_.Site.Get()); site) site->ShowObject();
    return attempt.Succeeded();
}

// Any of these calls may lead to the opposite of what was begun, or to all of it at once; what is said to the host stays
// in balance. A site that refuses hears of no deactivation.
HRESULT Activation::EnterSite() {
    const auto site = control_.Site.As<IOleInPlaceSite>();
    if (active_) return S_OK;
    if (!site || site->CanInPlaceActivate() != S_OK) return OLE_E_NOT_INPLACEACTIVE;
    if (active_) return S_OK;
    site_ = site;
    active_ = true;
    const HRESULT agreed = site->OnInPlaceActivate();
    if (SUCCEEDED(agreed)) return active_ ? S_OK : E_FAIL;
    if (site_.Get() != site.Get()) return agreed; // the host took it elsewhere meanwhile
    TakeWindowAway();
    ForgetSite();
    return agreed;
}

// A host may have no frame, no document window and no idea of the place.
HRESULT Activation::MakeWindow() {
    const auto site = site_;
    HWND parent = nullptr;
    if (!site || FAILED(site->GetWindow(&parent)) || !parent) return E_FAIL;
    RECT position = {}, clip = {};
    OLEINPLACEFRAMEINFO info = {};
    info.cb = sizeof info;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    const HRESULT known = site->GetWindowContext(frame.Put(), document.Put(), &position, &clip, &info);
    if (!active_ || site_.Get() != site.Get()) return E_FAIL; // the host thought better of it
    if (Window()) return S_OK;                                // or did it by itself
    if (FAILED(known)) position = clip = {0, 0, control_.Size.Pixels().cx, control_.Size.Pixels().cy};
    std::swap(frame_, frame);
    std::swap(document_, document);
    frameInfo_ = info;
    position_ = position;
    clipped_ = false;
    if (!window_.Create(parent, position)) return E_FAIL;
    if (!active_) { // ended by one of the window's first messages
        window_.Destroy();
        return E_FAIL;
    }
    rowStop_.Create(Window());
    ClipTo(clip);
    if (control_.Size.Pixels(SizeOf(position))) control_.Resized();
    window_.Show(true);
    return S_OK;
}

HRESULT Activation::UIActivate(FocusOn wanted) {
    const HRESULT activated = InPlaceActivate();
    if (activated != S_OK || (uiActive_ && GetFocus() == Window())) return activated;
    const HRESULT agreed = uiActive_ ? S_OK : EnterUI();
    if (agreed != S_OK) return agreed;
    TakeFocus(wanted);
    if (uiActive_) AnnounceActiveObject();
    return uiActive_ ? S_OK : E_FAIL;
}

HRESULT Activation::EnterUI() {
    uiActive_ = true;
    const auto site = site_;
    const HRESULT agreed = site->OnUIActivate();
    if (SUCCEEDED(agreed)) return uiActive_ ? S_OK : E_FAIL;
    uiActive_ = false;
    if (announced_) AnnounceActiveObject(); // by an activation inside that call
    return agreed;
}

void Activation::TakeFocus(FocusOn wanted) noexcept {
    const HWND window = Window(), focus = GetFocus();
    const bool mayStay = wanted == FocusOn::ControlOrChild && IsChild(window, focus);
    if (window && window != focus && !mayStay) SetFocus(window);
}

// Even where the host wants no UI activation, a window on the control gives the focus up: the press may hide it.
void Activation::Pressed() {
    if (UIActivate() != S_OK && IsChild(Window(), GetFocus())) SetFocus(Window());
}

// Whoever is told may change what the next one had been told.
void Activation::AnnounceActiveObject() noexcept {
    const bool active = announced_ = uiActive_;
    const auto object = active ? QueryFor<IOleInPlaceActiveObject>(&control_.Controlling) : nullptr;
    const auto tell = [&](IOleInPlaceUIWindow* window) {
        if (window && uiActive_ == active)
            window->SetActiveObject(object.Get(), active ? ControlTitle : nullptr);
        if (window && uiActive_ && active) window->SetBorderSpace(nullptr);
    };
    const auto frame = frame_;
    const auto document = document_;
    tell(frame.Get());
    tell(document.Get());
}

void Activation::UIDeactivate() noexcept {
    if (!uiActive_) return;
    uiActive_ = false;
    AnnounceActiveObject();
    if (const auto site = site_) site->OnUIDeactivate(FALSE);
}

void Activation::InPlaceDeactivate() noexcept {
    if (!active_) return;
    TakeWindowAway();
    if (const auto site = ForgetSite()) site->OnInPlaceDeactivate();
}

void Activation::End() noexcept {
    leaving_ = true;
    InPlaceDeactivate();
    window_.Destroy();
}

void Activation::TakeWindowAway() noexcept {
    const bool before = std::exchange(leaving_, true);
    UIDeactivate();
    active_ = false;
    rowStop_.Destroy();
    window_.Destroy();
    leaving_ = before;
}

// What the site gave goes last: that may run code of the host.
ComPtr<IOleInPlaceSite> Activation::ForgetSite() noexcept {
    const auto frame = std::exchange(frame_, nullptr);
    const auto document = std::exchange(document_, nullptr);
    return std::exchange(site_, nullptr);
}

void Activation::SetRects(const RECT& position, const RECT* clip) {
    position_ = position;
    if (!Window()) {
        if (control_.Size.Pixels(SizeOf(position))) control_.Resized();
        return;
    }
    ClipTo(clip ? *clip : position);
    window_.Move(position); // the window tells of its new size
}

// The part of the window that the host lets show.
void Activation::ClipTo(const RECT& clip) noexcept {
    RECT shown = {};
    IntersectRect(&shown, &position_, &clip);
    const bool whole = EqualRect(&shown, &position_) || IsRectEmpty(&clip);
    if (whole && !clipped_) return;
    clipped_ = !whole;
    OffsetRect(&shown, -position_.left, -position_.top);
    SetWindowRgn(Window(), whole ? nullptr : CreateRectRgnIndirect(&shown),
                 TRUE); // the system owns the region now
}

void Activation::Show(bool visible) noexcept { window_.Show(visible); }

void Activation::AskForSize(SIZE pixels) {
    const auto site = site_;
    if (!site || pixels == SizeOf(position_)) return;
    const POINT corner = Position();
    const RECT wanted = {corner.x, corner.y, corner.x + pixels.cx, corner.y + pixels.cy};
    site->OnPosRectChange(&wanted);
}

POINT Activation::Position() const noexcept {
    if (!Window()) return {position_.left, position_.top};
    RECT area = {};
    GetWindowRect(Window(), &area);
    POINT corner = {area.left, area.top};
    MapWindowPoints(nullptr, GetParent(Window()), &corner, 1);
    return corner;
}

bool Activation::IsFrameKey(MSG& message) noexcept {
    const auto frame = frame_;
    OLEINPLACEFRAMEINFO info = frameInfo_;
    return frame && info.haccel && OleTranslateAccelerator(frame.Get(), &info, &message) == S_OK;
}

void Activation::FocusChanged(bool gained) {
    if (gained && !uiActive_) UIActivate(FocusOn::ControlOrChild);
    if (const auto site = control_.Site.As<IOleControlSite>()) site->OnFocus(gained);
}

} // namespace vantik
