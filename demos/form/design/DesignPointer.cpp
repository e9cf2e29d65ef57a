// What pointer and keys do on the form under design.
#include <algorithm>
#include <cstdlib>

#include <windowsx.h>

#include "acctree/Node.h"
#include "demos/form/design/DesignPage.h"

namespace vantik {

namespace {

bool IsDown(int key) noexcept { return GetKeyState(key) < 0; }

Spot SpotOf(LPARAM lParam) noexcept { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

const wchar_t* CursorOf(Handle handle) noexcept {
    switch (handle) {
    case Handle::TopLeft:
    case Handle::BottomRight: return IDC_SIZENWSE;
    case Handle::TopRight:
    case Handle::BottomLeft: return IDC_SIZENESW;
    case Handle::Top:
    case Handle::Bottom: return IDC_SIZENS;
    case Handle::Left:
    case Handle::Right: break;
    }
    return IDC_SIZEWE;
}

} // namespace

// With Alt nothing is drawn to the grid.
PageRules DesignPage::Rules() { return Rules(!IsDown(VK_MENU)); }

// Where it answers, the control is not asked.
std::optional<LRESULT> DesignPage::OnControlMessage(UINT message, WPARAM, LPARAM lParam) {
    if (!grips_) return std::nullopt; // it is just coming or going
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: return OnPress(SpotOf(lParam));
    case WM_MOUSEMOVE: return OnMove(SpotOf(lParam));
    case WM_LBUTTONUP: return OnRelease(SpotOf(lParam));
    case WM_SETCURSOR: return OnCursor(lParam);
    case WM_CAPTURECHANGED: CallOff(); return std::nullopt;
    default: return std::nullopt;
    }
}

bool DesignPage::IsOnBar(Spot spot) {
    POINT screen = {spot.X, spot.Y};
    ClientToScreen(view_.Host().ControlWindow(), &screen);
    const auto row = Node::OfWindow(view_.Host().ControlWindow());
    const auto part = row ? row->HitTest(screen) : std::nullopt;
    return part && part->Role() == ROLE_SYSTEM_PAGETAB;
}

// A press on a bar is the control's own: it shows the tab once it is UI active.
std::optional<LRESULT> DesignPage::OnPress(Spot spot) {
    Host().UIActivate();
    if (!tool_ && IsOnBar(spot)) return std::nullopt;
    if (IsSecondPress(spot) && !tool_)
        ShowDetails(spot);
    else
        Begin(spot);
    return 0;
}

void DesignPage::Begin(Spot spot) {
    using Kind = Gesture::Kind;
    const auto held =
        chosen_.empty() ? std::nullopt : HandleAt(view_.Children().Pixels(chosen_), HandleSize(), spot);
    if (!tool_ && !held) Choose(view_.Children().NameAt(spot.X, spot.Y));
    if (!tool_ && chosen_.empty()) return;
    const Kind kind = tool_ ? Kind::Draw : held ? Kind::Resize : Kind::Move;
    SetCapture(Host().ControlWindow());
    gesture_ = Gesture{kind, spot, view_.Children().Pixels(chosen_), held.value_or(Handle::TopLeft)};
}

// The control's window tells of single presses only.
bool DesignPage::IsSecondPress(Spot spot) {
    const auto isNear = [](int a, int b, int metric) {
        return std::abs(a - b) * 2 <= GetSystemMetrics(metric);
    };
    const auto now = static_cast<DWORD>(GetMessageTime());
    const auto first = std::exchange(lastPress_, FirstPress{now, spot});
    const bool isSecond = first && now - first->Time <= GetDoubleClickTime() &&
                          isNear(first->At.X, spot.X, SM_CXDOUBLECLK) &&
                          isNear(first->At.Y, spot.Y, SM_CYDOUBLECLK);
    if (isSecond) lastPress_.reset();
    return isSecond;
}

void DesignPage::ShowDetails(Spot spot) {
    if (view_.Children().NameAt(spot.X, spot.Y).empty())
        Host().DoVerb(OLEIVERB_PROPERTIES);
    else
        handlers_.EditText();
}

Box DesignPage::Dragged(const Gesture& gesture, Spot spot) {
    const int right = spot.X - gesture.From.X, down = spot.Y - gesture.From.Y;
    if (gesture.What == Gesture::Kind::Resize)
        return Resized(gesture.Start, gesture.Held, right, down, Rules());
    return Moved(gesture.Start, right, down, Rules());
}

std::optional<LRESULT> DesignPage::OnMove(Spot spot) {
    if (!gesture_) return std::nullopt;
    if (spot.X != gesture_->From.X || spot.Y != gesture_->From.Y) lastPress_.reset();
    if (gesture_->What == Gesture::Kind::Draw)
        ShowOutline(Drawn(gesture_->From, spot, Rules()));
    else
        PlaceChosen(Dragged(*gesture_, spot));
    return 0;
}

std::optional<LRESULT> DesignPage::OnRelease(Spot spot) {
    const auto gesture = std::exchange(gesture_, std::nullopt);
    if (!gesture) return std::nullopt;
    ReleaseCapture();
    ShowOutline(std::nullopt);
    altWasUsed_ = IsDown(VK_MENU);
    if (gesture->What == Gesture::Kind::Draw) {
        const KindTraits& traits = TraitsOf(*std::exchange(tool_, std::nullopt));
        const auto scaled = [](int length) { return MulDiv(length, ScreenResolution(), 96); };
        handlers_.ToolUsed();
        const auto drawn = Drawn(gesture->From, spot, Rules());
        Place(traits.Kind,
              drawn ? *drawn : Dropped(gesture->From, scaled(traits.Width), scaled(traits.Height), Rules()));
    } else if (const Box place = Dragged(*gesture, spot); place != gesture->Start) {
        PlaceChosen(place);
        handlers_.Changed();
    }
    return 0;
}

// What was begun is as if it had not been.
void DesignPage::CallOff() {
    const auto gesture = std::exchange(gesture_, std::nullopt);
    if (!gesture) return;
    if (GetCapture() == Host().ControlWindow()) ReleaseCapture();
    ShowOutline(std::nullopt);
    if (gesture->What != Gesture::Kind::Draw) PlaceChosen(gesture->Start);
}

const wchar_t* DesignPage::CursorAt(Spot spot) {
    if (tool_) return IDC_CROSS;
    const auto held =
        chosen_.empty() ? std::nullopt : HandleAt(view_.Children().Pixels(chosen_), HandleSize(), spot);
    if (held) return CursorOf(*held);
    return view_.Children().NameAt(spot.X, spot.Y).empty() ? IDC_ARROW : IDC_SIZEALL;
}

std::optional<LRESULT> DesignPage::OnCursor(LPARAM lParam) {
    if (LOWORD(lParam) != HTCLIENT) return std::nullopt;
    POINT pointer = {};
    GetCursorPos(&pointer);
    ScreenToClient(Host().ControlWindow(), &pointer);
    SetCursor(LoadCursorW(nullptr, CursorAt({pointer.x, pointer.y})));
    return TRUE;
}

bool DesignPage::UsesKey(const MSG& message) {
    if (message.message == WM_SYSKEYUP && message.wParam == VK_MENU) return std::exchange(altWasUsed_, false);
    if (message.message != WM_KEYDOWN || IsDown(VK_CONTROL)) return false;
    switch (message.wParam) {
    case VK_DELETE: RemoveChosen(); return true;
    case VK_TAB: ChooseNext(IsDown(VK_SHIFT) ? -1 : 1); return true;
    case VK_ESCAPE:
        if (gesture_) {
            CallOff();
        } else {
            tool_.reset();
            handlers_.ToolUsed();
            Choose({});
        }
        return true;
    default: return UseArrow(message.wParam);
    }
}

bool DesignPage::UseArrow(WPARAM key) {
    const int right = key == VK_RIGHT ? 1 : key == VK_LEFT ? -1 : 0;
    const int down = key == VK_DOWN ? 1 : key == VK_UP ? -1 : 0;
    if ((right == 0 && down == 0) || chosen_.empty() || gesture_) return right != 0 || down != 0;
    const Box place = view_.Children().Pixels(chosen_);
    const PageRules rules = Rules(false);
    PlaceChosen(IsDown(VK_SHIFT) ? Resized(place, Handle::BottomRight, right, down, rules)
                                 : Moved(place, right, down, rules));
    handlers_.Changed();
    return true;
}

void DesignPage::ChooseNext(int direction) {
    std::vector<std::wstring> names;
    for (const Child& child : view_.Children().All())
        if (view_.Children().IsOnPage(child.Name, Page())) names.push_back(child.Name);
    if (names.empty() || gesture_) return;
    const auto count = static_cast<int>(names.size());
    const auto here = static_cast<int>(std::ranges::find(names, chosen_) - names.begin());
    const int next = here == count ? (direction > 0 ? 0 : count - 1) : (here + direction + count) % count;
    Choose(names[static_cast<std::size_t>(next)]);
}

} // namespace vantik
