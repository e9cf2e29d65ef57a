#include "DemoForm.h"

#include "host/SavedObjects.h"

namespace vantik {

namespace {

constexpr SIZE FormSize = {1008, 620};
constexpr SIZE LeastSize = {720, 540};
constexpr int Margin = 12;

constexpr UINT ArrangeMessage = WM_APP;

// What the panel at the right leaves.
RECT ControlPlace(SIZE form, int panelWidth) noexcept {
    return {Margin, Margin, form.cx - panelWidth - 2 * Margin, form.cy - Margin};
}

} // namespace

DemoForm::DemoForm(ControlModule& module) : module_(module), skins_(FindSkins()) {
    FormHandlers handlers;
    handlers.Event = [this](EventCall& event) { OnEvent(event); };
    handlers.Message = [this](UINT m, WPARAM w, LPARAM l) { return OnMessage(m, w, l); };
    handlers.ControlMessage = [this](UINT m, WPARAM w, LPARAM l) { return OnControlMessage(m, w, l); };
    handlers.Key = [this](const MSG& message) { return keys_ && keys_->Use(message); };
    const FormLayout layout = {L"VantikFrameTab", FormSize, ControlPlace(FormSize, PanelWidth),
                               L"VantikFrameTab1"};
    form_ = std::make_unique<HostForm>(module, layout, HostSwitches(), std::move(handlers));
    MakeOptions();
    events_ = std::make_unique<EventList>(form_->Window().Handle(), font_);
    OpenControl();
    Arrange();
}

void DemoForm::OpenControl() {
    form_->OpenNew();
    SavedFont captionFont;
    captionFont.Name = font_.Name();
    captionFont.Size = FormFont::Points;
    PutReference(Control(), L"Font", MakeAgain(captionFont).Get());
    Set(L"TabOffSet", Pages::TabOffSet);
    Set(L"DelButton", false);
    Set(L"FixOcxList", Pages::FixedControl);
    Set(L"TabCount", static_cast<std::int16_t>(Pages::Captions().size()));
    Set(L"ActiveTab", std::int16_t{0});
    for (std::size_t i = 0; i < Pages::Captions().size(); ++i) {
        Call(Control(), L"SetBarCaption", {static_cast<std::int16_t>(i), Pages::Captions()[i], true});
    }
    pages_ = std::make_unique<Pages>(*form_, font_, [this](const std::wstring& line) { Note(line); });
    keys_ = std::make_unique<FormKeys>(*form_);
    UseSkin(0);
    // The key Tab begins with it.
    SetWindowPos(form_->ControlWindow(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void DemoForm::Arrange() {
    const SIZE size = form_->Window().ClientSize();
    const int panelLeft = size.cx - Margin - PanelWidth;
    const int listTop = Margin + options_->Height();
    options_->MoveTo(panelLeft, Margin);
    events_->MoveTo({panelLeft, listTop, PanelWidth, size.cy - Margin - listTop});
    const RECT place = ControlPlace(size, PanelWidth);
    form_->MoveControl(place);
    pages_->Arrange({place.right - place.left, place.bottom - place.top});
}

// Fixed controls stand where those of the first tab stand. When that one goes they go with it, and are put back.
void DemoForm::ArrangeLater() { PostMessageW(form_->Window().Handle(), ArrangeMessage, 0, 0); }

void DemoForm::Note(const std::wstring& line) {
    if (events_) events_->Add(line);
}

// The user's way to a disabled tab ends where it began: opened, its page would be empty and all others displaced.
void DemoForm::RefuseDisabledTab(EventCall& event) {
    std::int16_t& index = event.Argument(0);
    if (!IsEnabled(index)) index = ActiveTab();
}

void DemoForm::OnEvent(EventCall& event) {
    Note(event.Text());
    if (event.Name() == L"TabDown") RefuseDisabledTab(event);
    if (event.Name() == L"DownBarDown") ShowTabMenu();
    if (event.Name() == L"TabClose") ArrangeLater();
}

std::optional<LRESULT> DemoForm::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        if (pages_ && wParam != SIZE_MINIMIZED) Arrange();
        return 0;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {LeastSize.cx, LeastSize.cy};
        return 0;
    case ArrangeMessage:
        Arrange();
        ShowOptions(); // another tab may be the third one now
        return 0;
    case WM_ERASEBKGND:
        if (!pages_) return std::nullopt;
        pages_->Background().Fill(form_->Window().Handle(), reinterpret_cast<HDC>(wParam));
        return 1;
    case WM_CTLCOLORSTATIC:
        if (!pages_) return std::nullopt;
        return pages_->Background().Answer(reinterpret_cast<HDC>(wParam));
    case WM_COMMAND:
        if (options_ && options_->Command(wParam)) return 0;
        return std::nullopt;
    case WM_CLOSE: PostQuitMessage(0); return 0;
    default: return std::nullopt;
    }
}

std::optional<LRESULT> DemoForm::OnControlMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return pages_ ? pages_->ControlMessage(message, wParam, lParam) : std::nullopt;
}

} // namespace vantik
