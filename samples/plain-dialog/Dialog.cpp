#include "Dialog.h"

#include "AtlHost.h"
#include "LastTab.h"
#include "Row.h"
#include "Skin.h"
#include "resource.h"

#include <algorithm>
#include <utility>

namespace {

constexpr short PageCount = 40, LockedPage = 2;
constexpr POINT PageCorner = {4, 36};               // on the control, in pixels: inside the frame of the skin
constexpr COLORREF PageColour = RGB(251, 251, 253); // what the skin paints there

HWND MakeDialog(int resource, HWND parent, DLGPROC procedure, LPARAM parameter) {
    return CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resource), parent, procedure,
                              parameter);
}

HWND WindowOf(IOleInPlaceActiveObject& object) {
    HWND window = nullptr;
    Check(object.GetWindow(&window));
    return window;
}

} // namespace

Dialog::Dialog() {
    InitAtl();
    window_ = MakeDialog(IDD_MAIN, nullptr, Procedure, 0);
    const auto control = ControlIn(GetDlgItem(window_, IDC_TABS));
    keys_ = Query<IOleInPlaceActiveObject>(*control);
    control_ = Query<_VantikFrameTab>(*control);
    page_ = WindowOf(*keys_);
    tabs_.emplace(*control_);
    events_.emplace(*control);
    SetWindowLongPtrW(window_, DWLP_USER, reinterpret_cast<LONG_PTR>(this));
    Open();
}

// The skin comes first: tabs that show before it would be shown in another one.
void Dialog::Open() {
    UseSkin(*control_, L"light");
    Check(control_->put_TabOffSet(40000)); // twips; wider than the control will ever be
    Check(control_->put_TabCount(PageCount));
    AddPages();
    events_->TabDown = [this](short& tab, short) { OnTabDown(tab); };
    events_->TabClose = [this](short& tab) { OnTabClose(tab); };
    events_->MenuDown = [this] { OnMenu(); };
    ShowWindow(window_, SW_SHOW);
    tabs_->Activate(tabs_->Find(ReadLastTab()));
    ShowActive();
}

// A page belongs to the tab that is active when it is made.
HWND Dialog::AddPage(short tab, const std::wstring& caption, const wchar_t* icon, int resource) {
    tabs_->Activate(tab);
    tabs_->SetCaption(tab, caption);
    tabs_->SetIcon(tab, icon);
    if (!resource) return nullptr;
    const HWND page = MakeDialog(resource, page_, PageProcedure, 0);
    SetWindowPos(page, nullptr, PageCorner.x, PageCorner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    return page;
}

void Dialog::AddPages() {
    AddPage(0, L"Person", L"User", IDD_PERSON);
    AddPage(1, L"Notes", L"Edit", IDD_NOTES);
    AddPage(LockedPage, L"Locked", L"Lock", 0);
    for (short tab = LockedPage + 1; tab < PageCount; ++tab) {
        const std::wstring caption = L"Sheet " + std::to_wstring(tab + 1);
        const HWND page = AddPage(tab, caption, L"Table", IDD_SHEET);
        SetDlgItemTextW(page, IDC_SHEET, (L"This is " + caption + L".").c_str());
    }
    tabs_->Activate(0);
    tabs_->Disable(LockedPage);
}

// As the user does, but from the dialog: no event comes for this.
void Dialog::Select(short tab) const {
    tabs_->Activate(tab);
    ShowActive();
    Tell(tabs_->Caption(tabs_->Active()) + L" is open");
}

void Dialog::ShowActive() const { Row(page_, tabs_->Count()).BringIntoView(tabs_->Active()); }

void Dialog::Tell(const std::wstring& text) const { SetDlgItemTextW(window_, IDC_STATUS, text.c_str()); }

void Dialog::OnTabDown(short& tab) const {
    const bool usable = tabs_->IsEnabled(tab);
    Tell(usable ? tabs_->Caption(tab) + L" is open" : L"That page is locked");
    if (!usable) tab = tabs_->Active();
}

// The control would go to the first tab, whichever is closed. So it keeps the tab, and the dialog takes it out.
void Dialog::OnTabClose(short& tab) const {
    const short closed = std::exchange(tab, short{-1}), active = tabs_->Active();
    const std::wstring question = L"Close \"" + tabs_->Caption(closed) + L"\"?";
    if (!tabs_->IsEnabled(closed) || tabs_->Count() == 1) return Tell(L"That page stays");
    if (MessageBoxW(window_, question.c_str(), L"Plain dialog", MB_YESNO | MB_ICONQUESTION) != IDYES) return;
    tabs_->Remove(closed);
    const int next = active > closed ? active - 1 : active;
    Select(static_cast<short>(std::min<int>(next, tabs_->Count() - 1)));
}

void Dialog::OnMenu() const {
    const HMENU menu = CreatePopupMenu();
    for (short tab = 0; tab < tabs_->Count(); ++tab) {
        const UINT state = (tab == tabs_->Active() ? MF_CHECKED : 0U) |
                           (tabs_->IsEnabled(tab) ? 0U : MF_GRAYED) |
                           (tab && tab % 20 == 0 ? MF_MENUBARBREAK : 0U);
        AppendMenuW(menu, state, static_cast<UINT_PTR>(tab) + 1, tabs_->Caption(tab).c_str());
    }
    const POINT corner = Row(page_, tabs_->Count()).MenuCorner();
    const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD, corner.x, corner.y, 0, window_, nullptr);
    DestroyMenu(menu);
    if (chosen > 0) Select(static_cast<short>(chosen - 1));
}

// Nothing hears the control any more when it goes with the dialog.
void Dialog::OnClose() {
    WriteLastTab(tabs_->Caption(tabs_->Active()));
    events_.reset();
    tabs_.reset();
    control_.reset();
    keys_.reset();
    DestroyWindow(window_);
    PostQuitMessage(0);
}

bool Dialog::UsesKey(MSG& message) const {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    return isKey && keys_ && keys_->TranslateAccelerator(&message) == S_OK;
}

// The control sees a key first, then the dialog manager, which knows Tab, Enter, Esc and the underlined letters.
int Dialog::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (UsesKey(message) || IsDialogMessageW(window_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

INT_PTR CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const dialog = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!dialog) return FALSE;
    switch (message) {
    case WM_SYSCOLORCHANGE: // these two reach top-level windows only
    case WM_SETTINGCHANGE: SendMessageW(dialog->page_, message, wParam, lParam); return FALSE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) dialog->OnClose();
        return TRUE;
    }
    return FALSE;
}

// Pages and their labels are part of the control's page.
INT_PTR CALLBACK Dialog::PageProcedure(HWND, UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_CTLCOLORDLG && message != WM_CTLCOLORSTATIC) return FALSE;
    const HDC dc = reinterpret_cast<HDC>(wParam);
    SetBkColor(dc, PageColour);
    SetDCBrushColor(dc, PageColour);
    return reinterpret_cast<INT_PTR>(GetStockObject(DC_BRUSH));
}
