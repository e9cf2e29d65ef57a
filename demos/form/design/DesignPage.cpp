#include "demos/form/design/DesignPage.h"

#include <algorithm>

#include "host/HostError.h"

namespace vantik {

namespace {

constexpr UINT ControlChangedMessage = WM_APP;

int Scaled(int length) { return MulDiv(length, ScreenResolution(), 96); }

constexpr int GridSize = 4, LeastChild = 8, HandlePixels = 7;

FormLayout LayoutOf(HWND parent, SIZE size) {
    FormLayout layout;
    layout.Title = L"Form1";
    layout.ClientSize = size;
    layout.Parent = parent;
    return layout;
}

std::vector<Box> EdgesOf(const Box& place) {
    const int thick = Scaled(1);
    return {{place.Left, place.Top, place.Width, thick},
            {place.Left, place.Bottom() - thick, place.Width, thick},
            {place.Left, place.Top, thick, place.Height},
            {place.Right() - thick, place.Top, thick, place.Height}};
}

} // namespace

DesignPage::DesignPage(ControlModule& module, HWND parent, SIZE size, const FormFont& font, Handlers handlers)
    : handlers_(std::move(handlers)),
      view_(module, font, FormView::Purpose::Design, LayoutOf(parent, size), MakeFormHandlers()) {
    Host().Window().Show();
}

FormHandlers DesignPage::MakeFormHandlers() {
    FormHandlers handlers;
    handlers.Message = [this](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != ControlChangedMessage) return std::nullopt;
        ControlChanged();
        return 0;
    };
    handlers.ControlMessage = [this](UINT m, WPARAM w, LPARAM l) { return OnControlMessage(m, w, l); };
    handlers.PropertyChanged = [this](DISPID) { ControlChangedLater(); };
    handlers.ShowProperties = handlers_.ShowProperties;
    return handlers;
}

// The control is in the middle of it.
void DesignPage::ControlChangedLater() {
    if (grips_) PostMessageW(Host().Window().Handle(), ControlChangedMessage, 0, 0);
}

void DesignPage::ControlChanged() {
    if (!grips_) return; // it went meanwhile
    view_.TakeColour();
    if (!view_.Children().IsOnPage(chosen_, Page())) Choose({});
    ShowHandles();
    handlers_.Changed();
}

// The marks are the old control's.
void DesignPage::Renew(const std::function<void()>& open) {
    CallOff();
    outline_.reset();
    grips_.reset();
    open();
    grips_ = std::make_unique<Marks>(Host().ControlWindow());
    outline_ = std::make_unique<Marks>(Host().ControlWindow());
    Choose(view_.Children().IsOnPage(chosen_, Page()) ? chosen_ : std::wstring());
}

void DesignPage::Open(const DesignedForm& form) {
    Renew([&] { view_.Open(form); });
}

void DesignPage::OpenNew() {
    Renew([&] { view_.OpenNew(); });
}

void DesignPage::Resize(SIZE pixels) {
    view_.Resize(pixels);
    ShowHandles();
}

void DesignPage::UseTool(std::optional<ChildKind> tool) {
    tool_ = tool;
    if (tool_) Choose({});
}

Box DesignPage::Page() {
    RECT client = {};
    GetClientRect(view_.Host().ControlWindow(), &client);
    return {0, 0, client.right, client.bottom};
}

// A child at 0 or left of it would count as one of the tab before.
PageRules DesignPage::Rules(bool onGrid) {
    const Box page = Page();
    return {{1, 0, page.Width - 1, page.Height}, onGrid ? Scaled(GridSize) : 1, Scaled(LeastChild)};
}

int DesignPage::HandleSize() const { return Scaled(HandlePixels); }

void DesignPage::Choose(const std::wstring& name) {
    const bool isAnother = name != chosen_;
    chosen_ = name;
    ShowHandles();
    if (isAnother) handlers_.Chosen();
}

void DesignPage::ShowHandles() {
    if (!grips_) return;
    if (chosen_.empty()) return grips_->Hide();
    const auto handles = HandlesOf(view_.Children().Pixels(chosen_), HandleSize());
    grips_->Show({handles.begin(), handles.end()});
}

void DesignPage::ShowOutline(const std::optional<Box>& place) {
    if (outline_) outline_->Show(place ? EdgesOf(*place) : std::vector<Box>());
}

void DesignPage::Place(ChildKind kind, const Box& place) {
    const std::wstring name = FreeName(kind, view_.Children().All());
    view_.Children().Add({kind, name, {}, kind == ChildKind::List ? std::wstring() : name});
    view_.Children().SetPixels(name, place);
    Choose(name);
    handlers_.Changed();
}

void DesignPage::PlaceChosen(const Box& place) {
    view_.Children().SetPixels(chosen_, place);
    ShowHandles();
}

std::wstring DesignPage::ChosenText() {
    const auto all = view_.Children().All();
    const auto found = std::ranges::find(all, chosen_, &Child::Name);
    return found == all.end() ? std::wstring() : found->Text;
}

void DesignPage::SetChosenText(const std::wstring& text) {
    view_.Children().SetText(chosen_, text);
    handlers_.Changed();
}

void DesignPage::RemoveChosen() {
    if (chosen_.empty()) return;
    view_.Children().Remove(std::wstring(chosen_));
    Choose({});
    handlers_.Changed();
}

} // namespace vantik
