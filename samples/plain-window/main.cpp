// A form of two pages with nothing but the system: the windows on the pages are children of the control's window.
#include "TabSite.h"

#include <clocale>
#include <optional>
#include <string>

namespace {

constexpr int Width = 420, Height = 300, Margin = 10;

// The control tells windows apart by the property "Name", a global atom, and else by their dialog id.
void Name(HWND window, const wchar_t* name) {
    SetPropW(window, L"Name", reinterpret_cast<HANDLE>(ULONG_PTR{GlobalAddAtomW(name)}));
}

// Before the window goes: what a process forgets of these stays until the user logs off.
void Unname(HWND window) {
    GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(RemovePropW(window, L"Name"))));
}

struct Text {
    explicit Text(const wchar_t* text) : Value(SysAllocString(text)) {}
    ~Text() { SysFreeString(Value); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    BSTR Value;
};

class Form {
public:
    Form();

    int Run();

private:
    HWND Add(const wchar_t* kind, const wchar_t* text, DWORD style, const RECT& place) const;
    void AddPage(short index, const wchar_t* caption);
    LRESULT BackOfLabel(HDC dc);
    void Tell(const std::wstring& text) const { SetWindowTextW(status_, text.c_str()); }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr, status_ = nullptr;
    std::optional<TabSite> tabs_;
    COLORREF page_ = CLR_INVALID; // what the control paints behind the windows on it
};

HWND Form::Add(const wchar_t* kind, const wchar_t* text, DWORD style, const RECT& place) const {
    const HWND added = CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                                       place.right - place.left, place.bottom - place.top, tabs_->Window(),
                                       nullptr, nullptr, nullptr);
    SendMessageW(added, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    return added;
}

// A label stands on the page as if it were painted there.
LRESULT Form::BackOfLabel(HDC dc) {
    if (page_ == CLR_INVALID) {
        const HDC shown = GetDC(tabs_->Window());
        page_ = GetPixel(shown, Width / 2, Height / 2);
        ReleaseDC(tabs_->Window(), shown);
    }
    SetBkColor(dc, page_);
    SetDCBrushColor(dc, page_);
    return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

// What is added to the control belongs to the tab that is active then.
void Form::AddPage(short index, const wchar_t* caption) {
    VARIANT_BOOL refresh = VARIANT_TRUE;
    Text text(caption);
    Check(tabs_->Tab().put_ActiveTab(index));
    Check(tabs_->Tab().SetBarCaption(&index, &text.Value, &refresh));
}

Form::Form() {
    WNDCLASSW description = {};
    description.lpfnWndProc = Procedure;
    description.lpszClassName = L"PlainWindowSample";
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    RegisterClassW(&description);
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT, description.lpszClassName, L"Plain window",
                              WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, Width + 40, Height + 60,
                              nullptr, nullptr, nullptr, nullptr);
    tabs_.emplace(window_, RECT{Margin, Margin, Width, Height});
    _VantikFrameTab& tab = tabs_->Tab();
    Check(tab.put_TabOffSet(20000)); // twips; wider than the control will ever be
    Check(tab.put_BarWidth(90));
    Check(tab.put_CaptionXjust(8)); // pixels
    Check(tab.put_CaptionYjust(4));
    Check(tab.put_TabCount(3));

    AddPage(0, L"Person");
    Add(L"STATIC", L"&Name:", 0, {20, 50, 80, 70});
    Add(L"EDIT", L"", WS_BORDER | WS_TABSTOP, {90, 48, 300, 70});
    Add(L"STATIC", L"&Mail:", 0, {20, 80, 80, 100});
    Add(L"EDIT", L"", WS_BORDER | WS_TABSTOP, {90, 78, 300, 100});
    AddPage(1, L"Notes");
    Add(L"STATIC", L"&Notes:", 0, {20, 50, 80, 70});
    Add(L"EDIT", L"", WS_BORDER | WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN, {90, 48, 380, 180});
    AddPage(2, L"Locked");
    short locked = 2;
    VARIANT_BOOL no = VARIANT_FALSE;
    Check(tab.put_ActiveTab(0));
    Check(tab.SetBarEnable(&locked, &no)); // of the active tab it would leave none active

    // The one window that stays on every page is known by its name.
    status_ = Add(L"STATIC", L"Ready", SS_NOPREFIX, {20, 250, 380, 270});
    Name(status_, L"Status");
    Text fixed(L"Status");
    Check(tab.put_FixOcxList(fixed.Value));

    tabs_->TabDown = [this](short& index, short) {
        VARIANT_BOOL usable = VARIANT_TRUE;
        tabs_->Tab().GetTabEnable(&index, &usable);
        if (!usable) tabs_->Tab().get_ActiveTab(&index);
        Tell(usable ? L"Page " + std::to_wstring(index + 1) : std::wstring(L"That page is locked"));
    };
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ShowWindow(window_, SW_SHOW);
}

// The control sees a key first, then the dialog manager, which knows Tab, Enter, Esc and the underlined letters.
int Form::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (tabs_->UsesKey(message) || IsDialogMessageW(window_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

LRESULT CALLBACK Form::Procedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) {
    auto* const form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (form && number == WM_SIZE)
        form->tabs_->Move({Margin, Margin, LOWORD(lParam) - Margin, HIWORD(lParam) - Margin});
    if (form && number == WM_SETFOCUS) SetFocus(form->tabs_->Window());
    if (form && number == WM_CLOSE) {
        Unname(form->status_);
        form->tabs_.reset(); // before its window's parent goes
        DestroyWindow(window);
        return 0;
    }
    if (form && number == WM_CTLCOLORSTATIC) return form->BackOfLabel(reinterpret_cast<HDC>(wParam));
    if (number == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, number, wParam, lParam);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    if (FAILED(OleInitialize(nullptr))) return 1;
    int result = 1;
    try {
        result = Form().Run();
    } catch (const ComError& error) {
        MessageBoxW(nullptr, (L"The control cannot be used: error " + std::to_wstring(error.Result)).c_str(),
                    L"Plain window", MB_ICONERROR);
    }
    OleUninitialize();
    return result;
}
