#include "Pages.h"

namespace vantik {

namespace {

constexpr int EveryTab = -1;
constexpr Box FixedButton = {0, 0, 92, 26};
constexpr int FixedMargin = 44;

struct PageWidget {
    int Tab;
    const wchar_t* Name;
    const wchar_t* Class;
    const wchar_t* Text;
    DWORD Style;
    Box Place;
};

constexpr DWORD Label = SS_LEFT | SS_NOPREFIX;
constexpr DWORD Field = ES_AUTOHSCROLL | WS_TABSTOP;
constexpr DWORD Memo = ES_MULTILINE | ES_WANTRETURN | WS_VSCROLL | WS_TABSTOP;
constexpr DWORD Check = BS_AUTOCHECKBOX | WS_TABSTOP;
constexpr DWORD Radio = BS_AUTORADIOBUTTON | WS_TABSTOP;
constexpr DWORD Push = BS_PUSHBUTTON | WS_TABSTOP;

// Columns and rows of the pages.
constexpr int X = 56;
constexpr int X2 = X + 88;
constexpr int Row(int number) { return 64 + number * 32; }

const PageWidget Widgets[] = {
    {0, L"lblName", L"STATIC", L"Name", Label, {X, Row(0) + 3, 80, 18}},
    {0, L"txtName", L"EDIT", L"Ada Lovelace", Field, {X2, Row(0), 260, 22}},
    {0, L"lblMail", L"STATIC", L"E-mail", Label, {X, Row(1) + 3, 80, 18}},
    {0, L"txtMail", L"EDIT", L"ada@example.org", Field, {X2, Row(1), 260, 22}},
    {0, L"lblCity", L"STATIC", L"City", Label, {X, Row(2) + 3, 80, 18}},
    {0, L"txtCity", L"EDIT", L"London", Field, {X2, Row(2), 160, 22}},
    {0, L"chkNews", L"BUTTON", L"Send me the newsletter", Check, {X2, Row(3) + 2, 220, 18}},

    {1, L"lblTheme", L"STATIC", L"Theme", Label, {X, Row(0) + 2, 80, 18}},
    {1, L"optLight", L"BUTTON", L"Light", Radio | WS_GROUP, {X2, Row(0), 160, 20}},
    {1, L"optDark", L"BUTTON", L"Dark", Radio, {X2, Row(0) + 24, 160, 20}},
    {1, L"optSystem", L"BUTTON", L"As the system", Radio, {X2, Row(0) + 48, 160, 20}},
    {1, L"chkLarge", L"BUTTON", L"Large letters", Check | WS_GROUP, {X2, Row(2) + 20, 160, 20}},
    {1, L"chkMotion", L"BUTTON", L"Less motion", Check, {X2, Row(2) + 44, 160, 20}},

    {2, L"lblHost", L"STATIC", L"Name", Label, {X, Row(0) + 3, 80, 18}},
    {2, L"txtHost", L"EDIT", L"proxy.example.org", Field, {X2, Row(0), 260, 22}},
    {2, L"lblPort", L"STATIC", L"Port", Label, {X, Row(1) + 3, 80, 18}},
    {2, L"txtPort", L"EDIT", L"8080", Field | ES_NUMBER, {X2, Row(1), 72, 22}},
    {2, L"chkSecure", L"BUTTON", L"Secure connection", Check, {X2, Row(2) + 2, 200, 20}},
    {2, L"cmdTry", L"BUTTON", L"Try it", Push, {X2, Row(3) + 4, 92, 26}},

    {3, L"lblNotes", L"STATIC", L"Notes", Label, {X, Row(0) + 3, 80, 18}},
    {3, L"txtNotes", L"EDIT", L"Tea at five.\r\nAsk Charles about the engine.", Memo, {X2, Row(0), 320, 150}},

    {4, L"lblTitle", L"STATIC", L"VantikFrameTab", Label, {X, Row(0), 300, 18}},
    {4,
     L"lblText",
     L"STATIC",
     L"Each page is made of ordinary windows. The control moves them in and out of view; the button below is "
     L"fixed "
     L"and stays on every tab.",
     Label,
     {X, Row(1), 360, 56}},

    {EveryTab, Pages::FixedControl, L"BUTTON", L"OK", Push, FixedButton},
};

constexpr int FirstId = 1000;

} // namespace

const std::vector<std::wstring>& Pages::Captions() {
    static const std::vector<std::wstring> captions = {L"Person", L"Look", L"Server", L"Notes", L"About"};
    return captions;
}

Pages::Pages(HostForm& form, const FormFont& font, Report report)
    : form_(form), font_(font), report_(std::move(report)) {
    Make();
    CheckRadioButton(form_.ControlWindow(), FirstId + 8, FirstId + 10, FirstId + 8);
}

void Pages::Make() {
    int id = FirstId;
    for (const PageWidget& widget : Widgets) {
        const HWND window = MakeWidget(form_.ControlWindow(), widget.Class, widget.Text, widget.Style,
                                       widget.Place, id++, font_);
        Place(form_.Add(widget.Name, window), widget.Tab);
    }
}

// With tab 0 active, the controls of tab k stand k times TabOffSet to the left of where they are seen.
void Pages::Place(HostedWindow& window, int tab) {
    if (tab == EveryTab) return;
    Placement place = static_cast<FormItem&>(window).Place();
    place.Left -= static_cast<double>(tab) * TabOffSet;
    window.Place(place);
}

void Pages::Arrange(SIZE control) {
    HostedWindow* button = form_.FindWindowNamed(FixedControl);
    if (!button) return;
    const int left = control.cx - FixedMargin - FixedButton.Width;
    const int top = control.cy - FixedMargin - FixedButton.Height;
    button->Place(ToPlacement({left, top, left + FixedButton.Width, top + FixedButton.Height}));
}

std::optional<LRESULT> Pages::ControlMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN)
        return colour_.Answer(reinterpret_cast<HDC>(wParam));
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED && lParam != 0) {
        const std::size_t index = static_cast<std::size_t>(LOWORD(wParam) - FirstId);
        if (index < std::size(Widgets)) report_(std::wstring(Widgets[index].Name) + L"_Click()");
        return 0;
    }
    return std::nullopt;
}

} // namespace vantik
