// Messages to a control's window and what else may happen to that window. Messages that carry pointers get real ones.
#include "hostile/random/Actions.h"
#include "hostile/random/RandomSite.h"

namespace vantik {

namespace {

using Argument = LPARAM (*)(World&, Place&);

LPARAM Zero(World&, Place&) { return 0; }
LPARAM Any(World& world, Place&) { return world.Draw.Number(); }
LPARAM Flag(World& world, Place&) { return world.Draw.Below(2); }
LPARAM Keys(World& world, Place&) { return world.Draw.Below(4) ? 0 : world.Draw.Below(128); }

// Mostly on the row of bars or beside it.
LPARAM Point(World& world, Place&) {
    if (world.Draw.OneIn(10)) return MAKELPARAM(world.Draw.Short(), world.Draw.Short());
    const int along = world.Draw.Between(0, 400), across = world.Draw.Between(0, 30);
    return world.Draw.OneIn(6) ? MAKELPARAM(across, along) : MAKELPARAM(along, across);
}

// Sizes of gigabytes are left to tests of their own.
LPARAM Size(World& world, Place&) {
    static constexpr int Odd[] = {0, 1, 2, 3, 20, 65535};
    const int width = world.Draw.OneIn(3) ? world.Draw.Of(Odd) : world.Draw.Between(0, 600);
    const int height = world.Draw.OneIn(3) ? world.Draw.Of(Odd) : world.Draw.Between(0, 400);
    return width > 20000 && height > 100 ? MAKELPARAM(width, 2) : MAKELPARAM(width, height);
}

LPARAM Wheel(World& world, Place&) {
    static constexpr int Turns[] = {120, -120, 1, -1, 32767, -32768, 0};
    return MAKELPARAM(world.Draw.OneIn(4) ? world.Draw.Below(32) : 0, world.Draw.Of(Turns));
}

LPARAM Key(World& world, Place&) {
    static constexpr LPARAM All[] = {VK_LEFT,   VK_RIGHT, VK_LEFT, VK_RIGHT, VK_TAB,
                                     VK_RETURN, VK_SPACE, VK_F10,  0,        255};
    return world.Draw.Of(All);
}

LPARAM Window(World& world, Place& place) {
    const HWND all[] = {nullptr, WindowOf(place), place.Form, WindowOf(world.AnyPlace()), GetDesktopWindow()};
    return reinterpret_cast<LPARAM>(world.Draw.Of(all));
}

// For messages of a child window, which the control hands to its own parent.
LPARAM Child(World& world, Place& place) {
    return world.Draw.OneIn(3) ? Window(world, place)
                               : reinterpret_cast<LPARAM>(GetWindow(WindowOf(place), GW_CHILD));
}

struct Kind {
    UINT Number;
    Argument W, L;
};

constexpr Kind Input[] = {
    {WM_MOUSEMOVE, Keys, Point},     {WM_MOUSEMOVE, Keys, Point},   {WM_LBUTTONDOWN, Keys, Point},
    {WM_LBUTTONDOWN, Keys, Point},   {WM_LBUTTONUP, Keys, Point},   {WM_RBUTTONDOWN, Keys, Point},
    {WM_RBUTTONUP, Keys, Point},     {WM_MBUTTONDOWN, Keys, Point}, {WM_MBUTTONUP, Keys, Point},
    {WM_LBUTTONDBLCLK, Keys, Point}, {WM_KEYDOWN, Key, Any},        {WM_KEYUP, Key, Any},
    {WM_MOUSEWHEEL, Wheel, Point},   {WM_MOUSEHWHEEL, Wheel, Point}};

constexpr Kind Others[] = {
    {WM_NULL, Any, Any},
    {WM_SIZE, Any, Size},
    {WM_MOVE, Any, Point},
    {WM_PAINT, Zero, Zero},
    {WM_PAINT, Any, Any},
    {WM_ERASEBKGND, Zero, Zero},
    {WM_PRINTCLIENT, Any, Any},
    {WM_PRINTCLIENT, Zero, Zero},
    {WM_NCPAINT, [](World&, Place&) -> LPARAM { return 1; }, Zero},
    {WM_SETFOCUS, Window, Zero},
    {WM_KILLFOCUS, Window, Zero},
    {WM_CAPTURECHANGED, Zero, Window},
    {WM_CANCELMODE, Zero, Zero},
    {WM_SHOWWINDOW, Flag, Zero},
    {WM_ENABLE, Flag, Zero},
    {WM_ACTIVATE, Flag, Window},
    {WM_MOUSEACTIVATE, Window, Any},
    {WM_CHAR, Key, Any},
    {WM_DEADCHAR, Key, Any},
    {WM_SYSCHAR, Key, Any},
    {WM_SYSKEYUP, Key, Any},
    {WM_GETDLGCODE, Key, Zero},
    {WM_NCHITTEST, Zero, Point},
    {WM_NCMOUSEMOVE, Zero, Point},
    {WM_MOUSELEAVE, Zero, Zero},
    {WM_MOUSEHOVER, Keys, Point},
    {WM_XBUTTONDOWN, Keys, Point},
    {WM_XBUTTONUP, Keys, Point},
    {WM_TIMER, Any, Zero},
    {WM_COMMAND, Any, Child},
    {WM_HSCROLL, Any, Child},
    {WM_VSCROLL, Any, Child},
    {WM_CTLCOLORSTATIC, Zero, Child},
    {WM_CTLCOLORBTN, Zero, Child},
    {WM_CTLCOLOREDIT, Zero, Child},
    {WM_SETREDRAW, Flag, Zero},
    {WM_SYSCOLORCHANGE, Any, Any},
    {WM_DISPLAYCHANGE, Any, Any},
    {WM_FONTCHANGE, Any, Any},
    {WM_THEMECHANGED, Any, Any},
    {WM_PALETTECHANGED, Window, Zero},
    {WM_QUERYNEWPALETTE, Zero, Zero},
    {WM_SETFONT, Zero, Flag},
    {WM_GETFONT, Zero, Zero},
    {WM_GETTEXTLENGTH, Zero, Zero},
    {WM_NCACTIVATE, Flag, Zero},
    {WM_CHILDACTIVATE, Zero, Zero},
    {WM_ENTERSIZEMOVE, Zero, Zero},
    {WM_EXITSIZEMOVE, Zero, Zero},
    {WM_UPDATEUISTATE, Any, Zero},
    {WM_QUERYUISTATE, Zero, Zero},
    {WM_CHANGEUISTATE, Any, Zero},
    {WM_PARENTNOTIFY, Any, Child},
    {WM_USER + 0x4654, Any, Any},
    {WM_USER, Any, Any},
    {WM_USER + 7, Any, Any},
    {WM_APP + 1, Any, Any},
    {0xC123, Any, Any},
    {WM_CLOSE, Zero, Zero},
    {WM_DESTROY, Zero, Zero},
};

template <std::size_t Count>
MSG RandomMessage(World& world, Place& place, const Kind (&kinds)[Count]) {
    const Kind& kind = world.Draw.Of(kinds);
    MSG message = {};
    message.hwnd = WindowOf(place);
    message.message = kind.Number;
    message.wParam = static_cast<WPARAM>(kind.W(world, place));
    message.lParam = kind.L(world, place);
    return message;
}

void Deliver(World& world, const MSG& message, const char* how) {
    world.Log.Note(std::string(how) + " " + std::to_string(message.message));
    if (message.hwnd) SendMessageW(message.hwnd, message.message, message.wParam, message.lParam);
}

void SendInput(World& world, Place& place) { Deliver(world, RandomMessage(world, place, Input), "input"); }
void SendOther(World& world, Place& place) { Deliver(world, RandomMessage(world, place, Others), "message"); }

// As a user does it, who moves there first.
void Click(World& world, Place& place) {
    MSG message = {};
    message.hwnd = WindowOf(place);
    message.lParam = Point(world, place);
    for (const UINT number : {UINT{WM_MOUSEMOVE}, UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP}}) {
        message.message = number;
        message.wParam = number == WM_LBUTTONDOWN ? MK_LBUTTON : 0;
        Deliver(world, message, "click");
    }
}

void PostInput(World& world, Place& place) {
    const MSG message = RandomMessage(world, place, Input);
    if (message.hwnd) PostMessageW(message.hwnd, message.message, message.wParam, message.lParam);
}

void Pump(World& world, Place&) { world.Pump(); }

void Destroy(World& world, Place& place) {
    DestroyWindow(world.Draw.OneIn(3) ? place.Form : WindowOf(place));
}

void Reparent(World& world, Place& place) {
    const HWND to = world.Draw.OneIn(4) ? nullptr : world.FormOf(world.AnyPlace());
    SetParent(WindowOf(place), to);
}

void Change(World& world, Place& place) {
    const HWND window = world.Draw.OneIn(4) ? place.Form : WindowOf(place);
    const RECT rect = RandomRect(world);
    switch (world.Draw.Below(10)) {
    case 0: EnableWindow(window, FALSE); return;
    case 1: EnableWindow(window, TRUE); return;
    case 2: ShowWindow(window, SW_HIDE); return;
    case 3: ShowWindow(window, SW_SHOWNA); return;
    case 4: SetFocus(world.Draw.OneIn(3) ? nullptr : window); return;
    case 5: InvalidateRect(window, world.Draw.OneIn(2) ? nullptr : &rect, FALSE); return;
    case 6: UpdateWindow(window); return;
    case 7: RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN); return;
    case 8: world.Draw.OneIn(2) ? SetCapture(window) : (ReleaseCapture(), nullptr); return;
    default:
        SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                     SWP_NOZORDER);
        return;
    }
}

// Plain windows on the control, of which some are taken away again.
void AddChild(World& world, Place& place) {
    static constexpr const wchar_t* Classes[] = {L"STATIC", L"BUTTON", L"LISTBOX"};
    const HWND window = WindowOf(place), child = GetWindow(window, GW_CHILD);
    if (!window) return;
    if (child && world.Draw.OneIn(2)) {
        DestroyWindow(child);
        return;
    }
    CreateWindowExW(0, world.Draw.Of(Classes), L"Child2", WS_CHILD | WS_VISIBLE, world.Draw.Short(),
                    world.Draw.Below(200), 50, 20, window, nullptr, nullptr, nullptr);
}

void SendToChild(World& world, Place& place) {
    const HWND child = GetWindow(WindowOf(place), GW_CHILD);
    if (!child) return;
    if (world.Draw.OneIn(2)) SetFocus(child);
    MSG message = RandomMessage(world, place, Input);
    message.hwnd = child;
    Deliver(world, message, "child's input");
}

void SendPointers(World& world, Place& place) {
    const HWND window = WindowOf(place);
    const RECT rect = RandomRect(world);
    WINDOWPOS position = {window, nullptr, rect.left, rect.top, rect.right, rect.bottom, SWP_NOZORDER};
    NMHDR notification = {GetWindow(window, GW_CHILD), 1, static_cast<UINT>(world.Draw.Number())};
    MINMAXINFO limits = {};
    wchar_t text[20] = {};
    if (!window) return;
    const struct {
        UINT Number;
        WPARAM W;
        void* L;
    } all[] = {{WM_WINDOWPOSCHANGING, 0, &position},
               {WM_NOTIFY, 1, &notification},
               {WM_GETMINMAXINFO, 0, &limits},
               {WM_GETTEXT, 20, text},
               {WM_SETTEXT, 0, text}};
    const auto& chosen = world.Draw.Of(all);
    SendMessageW(window, chosen.Number, chosen.W, reinterpret_cast<LPARAM>(chosen.L));
}

constexpr Action All[] = {{"input", 20, SendInput},
                          {"click", 12, Click},
                          {"message", 16, SendOther},
                          {"posted input", 6, PostInput},
                          {"pump", 8, Pump},
                          {"destroy window", 1, Destroy},
                          {"reparent", 1, Reparent},
                          {"change window", 10, Change},
                          {"child window", 3, AddChild},
                          {"message to child", 3, SendToChild},
                          {"pointers", 2, SendPointers}};

} // namespace

Actions WindowActions() noexcept { return All; }

} // namespace vantik
