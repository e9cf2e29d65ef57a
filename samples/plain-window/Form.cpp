#include "Form.h"

#include "LastTab.h"
#include "Row.h"
#include "Skin.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int Width = 700, Height = 340;
constexpr short PageCount = 40, LockedPage = 2;

// The control tells windows apart by the property "Name", a global atom, and else by their dialog id.
void Name(HWND window, const wchar_t* name) {
    SetPropW(window, L"Name", reinterpret_cast<HANDLE>(ULONG_PTR{GlobalAddAtomW(name)}));
}

// Before the window goes: what a process forgets of these stays until the user logs off.
void Unname(HWND window) {
    GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(RemovePropW(window, L"Name"))));
}

} // namespace

Form::Form() {
    WNDCLASSW description = {};
    description.lpfnWndProc = Procedure;
    description.lpszClassName = L"PlainWindowSample";
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    RegisterClassW(&description);
    const RECT size = {0, 0, Width, Height};
    RECT outside = size;
    AdjustWindowRect(&outside, WS_OVERLAPPEDWINDOW, FALSE);
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT, description.lpszClassName, L"Plain window",
                              WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, outside.right - outside.left,
                              outside.bottom - outside.top, nullptr, nullptr, nullptr, nullptr);
    site_.emplace(window_, size);
    tabs_.emplace(site_->Tab());
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    Open();
}

// The skin comes first: tabs that show before it would be shown in another one.
void Form::Open() {
    UseSkin(site_->Tab(), L"light");
    Check(site_->Tab().put_TabOffSet(40000)); // twips; wider than the control will ever be
    Check(site_->Tab().put_FrameDist(6));     // pixels
    Check(site_->Tab().put_TabCount(PageCount));
    AddPages();
    AddStatus();
    site_->TabDown = [this](short& tab, short) { OnTabDown(tab); };
    site_->TabClose = [this](short& tab) { OnTabClose(tab); };
    site_->MenuDown = [this] { OnMenu(); };
    ShowWindow(window_, SW_SHOW);
    tabs_->Activate(tabs_->Find(ReadLastTab()));
    ShowActive();
}

// A window belongs to the tab that is active when it is made.
HWND Form::Add(const wchar_t* kind, const wchar_t* text, DWORD style, const RECT& place) const {
    const HWND added = CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                                       place.right - place.left, place.bottom - place.top, site_->Window(),
                                       nullptr, nullptr, nullptr);
    SendMessageW(added, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    return added;
}

void Form::BeginPage(short tab, const std::wstring& caption, const wchar_t* icon) const {
    tabs_->Activate(tab);
    tabs_->SetCaption(tab, caption);
    tabs_->SetIcon(tab, icon);
}

void Form::AddPages() const {
    BeginPage(0, L"Person", L"User");
    Add(L"STATIC", L"&Name:", 0, {20, 60, 80, 80});
    Add(L"EDIT", L"", WS_BORDER | WS_TABSTOP, {90, 58, 300, 80});
    Add(L"STATIC", L"&Mail:", 0, {20, 90, 80, 110});
    Add(L"EDIT", L"", WS_BORDER | WS_TABSTOP, {90, 88, 300, 110});
    BeginPage(1, L"Notes", L"Edit");
    Add(L"STATIC", L"N&otes:", 0, {20, 60, 80, 80});
    Add(L"EDIT", L"", WS_BORDER | WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN, {90, 58, 500, 240});
    BeginPage(LockedPage, L"Locked", L"Lock");
    for (short tab = LockedPage + 1; tab < PageCount; ++tab) {
        const std::wstring caption = L"Sheet " + std::to_wstring(tab + 1);
        BeginPage(tab, caption, L"Table");
        Add(L"STATIC", (L"This is " + caption + L".").c_str(), SS_NOPREFIX, {20, 60, 300, 80});
    }
    tabs_->Activate(0);
    tabs_->Disable(LockedPage);
}

// The one window that stays on every page is known by its name.
void Form::AddStatus() {
    status_ = Add(L"STATIC", L"Ready", SS_NOPREFIX, {});
    Arrange();
    Name(status_, L"Status");
    Check(site_->Tab().put_FixOcxList(Text(L"Status").Value));
}

// The control over the whole form, the fixed window at the bottom of the page.
void Form::Arrange() {
    RECT inside;
    GetClientRect(window_, &inside);
    site_->Move(inside);
    MoveWindow(status_, 20, inside.bottom - 50, inside.right - 50, 20, TRUE);
}

// As the user does, but from the form: no event comes for this.
void Form::Select(short tab) const {
    tabs_->Activate(tab);
    ShowActive();
    Tell(tabs_->Caption(tabs_->Active()) + L" is open");
}

void Form::ShowActive() const { Row(site_->Window(), tabs_->Count()).BringIntoView(tabs_->Active()); }

void Form::OnTabDown(short& tab) const {
    const bool usable = tabs_->IsEnabled(tab);
    Tell(usable ? tabs_->Caption(tab) + L" is open" : L"That page is locked");
    if (!usable) tab = tabs_->Active();
}

// The control would go to the first tab, whichever is closed. So it keeps the tab, and the form takes it out.
void Form::OnTabClose(short& tab) {
    const short closed = std::exchange(tab, short{-1}), active = tabs_->Active();
    const std::wstring question = L"Close \"" + tabs_->Caption(closed) + L"\"?";
    if (!tabs_->IsEnabled(closed) || tabs_->Count() == 1) return Tell(L"That page stays");
    if (MessageBoxW(window_, question.c_str(), L"Plain window", MB_YESNO | MB_ICONQUESTION) != IDYES) return;
    tabs_->Remove(closed);
    Arrange(); // a fixed window stands where those of the first tab do, and goes with it
    const int next = active > closed ? active - 1 : active;
    Select(static_cast<short>(std::min<int>(next, tabs_->Count() - 1)));
}

void Form::OnMenu() const {
    const HMENU menu = CreatePopupMenu();
    for (short tab = 0; tab < tabs_->Count(); ++tab) {
        const UINT state = (tab == tabs_->Active() ? MF_CHECKED : 0U) |
                           (tabs_->IsEnabled(tab) ? 0U : MF_GRAYED) |
                           (tab && tab % 20 == 0 ? MF_MENUBARBREAK : 0U);
        AppendMenuW(menu, state, static_cast<UINT_PTR>(tab) + 1, tabs_->Caption(tab).c_str());
    }
    const POINT corner = Row(site_->Window(), tabs_->Count()).MenuCorner();
    const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD, corner.x, corner.y, 0, window_, nullptr);
    DestroyMenu(menu);
    if (chosen > 0) Select(static_cast<short>(chosen - 1));
}

// The control goes before its window's parent does.
void Form::OnClose() {
    WriteLastTab(tabs_->Caption(tabs_->Active()));
    Unname(status_);
    tabs_.reset();
    site_.reset();
    DestroyWindow(window_);
}

// A label stands on the page as if it were painted there.
LRESULT Form::BackOfLabel(HDC dc) {
    if (page_ == CLR_INVALID) {
        const HDC shown = GetDC(site_->Window());
        page_ = GetPixel(shown, Width / 2, Height / 2);
        ReleaseDC(site_->Window(), shown);
    }
    SetBkColor(dc, page_);
    SetDCBrushColor(dc, page_);
    return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

// The control sees a key first, then the dialog manager, which knows Tab, Enter, Esc and the underlined letters.
int Form::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if ((site_ && site_->UsesKey(message)) || IsDialogMessageW(window_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

LRESULT Form::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE: Arrange(); break;
    case WM_SETFOCUS: SetFocus(site_->Window()); break;
    case WM_SYSCOLORCHANGE: // these two reach top-level windows only
    case WM_SETTINGCHANGE: SendMessageW(site_->Window(), message, wParam, lParam); break;
    case WM_CTLCOLORSTATIC: return BackOfLabel(reinterpret_cast<HDC>(wParam));
    case WM_CLOSE: OnClose(); return 0;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT CALLBACK Form::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (form && form->site_) return form->Handle(message, wParam, lParam);
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}
