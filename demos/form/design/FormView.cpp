#include "demos/form/design/FormView.h"

#include <algorithm>
#include <cmath>

#include "host/HostError.h"

namespace vantik {

namespace {

HostSwitches SwitchesFor(FormView::Purpose purpose) noexcept {
    HostSwitches switches;
    switches.UserMode = purpose == FormView::Purpose::Use;
    return switches;
}

// Lines keep the numbers that they have in the form's text, for what may be wrong in them.
ComPtr<TextPropertyBag> BagOf(const DesignedForm& form) {
    const std::string before(static_cast<std::size_t>(form.PropertiesLine - 1), '\n');
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Parse(before + ToUtf8(form.Properties));
    return bag;
}

RECT ToRect(const Box& twips) {
    return ToPixels(Placement{static_cast<double>(twips.Left), static_cast<double>(twips.Top),
                              static_cast<double>(twips.Width), static_cast<double>(twips.Height)});
}

int WholeTwips(int pixels) { return static_cast<int>(std::lround(ToTwips(pixels))); }

constexpr int Margin = 180; // around a new control, in twips

DesignedForm NewFrame(const FormLayout& layout) {
    DesignedForm frame;
    frame.ControlName = layout.ControlName;
    frame.Width = WholeTwips(layout.ClientSize.cx);
    frame.Height = WholeTwips(layout.ClientSize.cy);
    frame.ControlPlace = {Margin, Margin, frame.Width - 2 * Margin, frame.Height - 2 * Margin};
    return frame;
}

} // namespace

SIZE PixelsOf(const DesignedForm& form) { return {ToPixels(form.Width), ToPixels(form.Height)}; }

FormView::FormView(ControlModule& module, const FormFont& font, Purpose purpose, FormLayout layout,
                   FormHandlers handlers)
    : frame_(NewFrame(layout)),
      form_(module, std::move(layout), SwitchesFor(purpose), WithColours(std::move(handlers))),
      children_(form_, font, purpose == Purpose::Design) {}

FormHandlers FormView::WithColours(FormHandlers handlers) {
    handlers.Message = [this, own = handlers.Message](UINT message, WPARAM wParam,
                                                      LPARAM lParam) -> std::optional<LRESULT> {
        if (auto answer = own ? own(message, wParam, lParam) : std::nullopt) return answer;
        if (message != WM_ERASEBKGND || !form_.Window().Handle()) return std::nullopt;
        colour_.Fill(form_.Window().Handle(), reinterpret_cast<HDC>(wParam));
        return 1;
    };
    handlers.ControlMessage = [this, own = handlers.ControlMessage](UINT message, WPARAM wParam,
                                                                    LPARAM lParam) -> std::optional<LRESULT> {
        if (auto answer = own ? own(message, wParam, lParam) : std::nullopt) return answer;
        if (message != WM_CTLCOLORSTATIC && message != WM_CTLCOLORBTN) return std::nullopt;
        return colour_.Answer(reinterpret_cast<HDC>(wParam));
    };
    return handlers;
}

void FormView::Open(const DesignedForm& form) {
    const ComPtr<TextPropertyBag> bag = BagOf(form);
    children_.Clear();
    form_.Close();
    frame_ = form;
    form_.MoveControl(ToRect(frame_.ControlPlace));
    form_.OpenFrom(*bag.Get());
    for (const Child& child : form.Children) children_.Add(child);
    TakeColour();
}

void FormView::OpenNew() {
    children_.Clear();
    form_.Close();
    form_.MoveControl(ToRect(frame_.ControlPlace));
    form_.OpenNew();
}

DesignedForm FormView::Form() {
    const auto bag = MakeCom<TextPropertyBag>();
    form_.SaveTo(*bag.Get());
    DesignedForm form = frame_;
    form.Properties = FromUtf8(bag->Text());
    form.Children = children_.All();
    return form;
}

SIZE FormView::Size() const { return PixelsOf(frame_); }

void FormView::Resize(SIZE pixels) {
    const SIZE before = Size();
    const int wider = WholeTwips(pixels.cx - before.cx), higher = WholeTwips(pixels.cy - before.cy);
    frame_.Width += wider;
    frame_.Height += higher;
    frame_.ControlPlace.Width = std::max(Margin, frame_.ControlPlace.Width + wider);
    frame_.ControlPlace.Height = std::max(Margin, frame_.ControlPlace.Height + higher);
    form_.MoveControl(ToRect(frame_.ControlPlace));
}

void FormView::TakeColour() { colour_.TakeFrom(form_); }

} // namespace vantik
