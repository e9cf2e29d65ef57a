// What the system and the host say has changed: the control shows it, and the windows on it hear of it.
#include <doctest/doctest.h>

#include <algorithm>

#include "host/ControlOnForm.h"
#include "host/SavedObjects.h"
#include "host/TextPropertyBag.h"
#include "hostile/PatchedImport.h"
#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

constexpr UINT ScaleChanged = 0x02E3; // WM_DPICHANGED_AFTERPARENT

// The system's colours, behind the control's back.
COLORREF ofSystem = 0;
int asked = 0;

HRESULT WINAPI Translate(OLE_COLOR, HPALETTE, COLORREF* translated) {
    ++asked;
    *translated = ofSystem;
    return S_OK;
}

// Two tabs, with captions of nothing but ink.
struct Painted : ReadControl {
    Painted() : ReadControl(2) {
        ofSystem = RGB(1, 200, 3);
        for (const short tab : {short{0}, short{1}}) Caption(tab, L"\u2588\u2588");
        InWindow->Picture();
    }
    bool Shows(std::uint32_t pixel) const {
        const test::Pixels picture = InWindow->Picture();
        return std::ranges::find(picture.Values, pixel) != picture.Values.end();
    }
    void Tell(UINT message) const { SendMessageW(Window(), message, 0, 0); }

    PatchedImport Colours{GetModuleHandleW(L"VantikFrameTab.ocx"), "OleTranslateColor",
                          reinterpret_cast<const void*>(&Translate)};
};

// A window that notes what it is told.
class Listener {
public:
    explicit Listener(HWND parent) {
        window_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 50, 10, 10, parent, nullptr,
                                  nullptr, nullptr);
        SetPropW(window_, L"Listener", this);
        before_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
    }
    ~Listener() {
        if (IsWindow(window_)) DestroyWindow(window_);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    HWND Window() const noexcept { return window_; }
    std::vector<MSG> Heard;
    std::function<void()> Then;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) {
        auto& self = *static_cast<Listener*>(GetPropW(window, L"Listener"));
        const WNDPROC before = self.before_;
        switch (number) {
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
        case ScaleChanged:
            self.Heard.push_back({window, number, wParam, lParam, 0, {}});
            if (self.Then) self.Then();
        }
        return CallWindowProcW(before, window, number, wParam, lParam);
    }

    HWND window_;
    WNDPROC before_;
};

} // namespace

TEST_CASE("a change of the system's shows at once, by whatever message it is told") {
    for (const UINT message :
         {UINT{WM_SYSCOLORCHANGE}, UINT{WM_THEMECHANGED}, UINT{WM_SETTINGCHANGE}, ScaleChanged}) {
        CAPTURE(message);
        const Painted control;
        CHECK(control.Shows(0x01C803));
        ofSystem = RGB(200, 3, 1);
        CHECK(!control.Shows(0xC80301)); // nobody has said so yet
        control.Tell(message);
        CHECK(control.Shows(0xC80301));
        CHECK(!control.Shows(0x01C803));
    }
}

TEST_CASE("several messages of one change are painted once") {
    const Painted control;
    asked = 0;
    for (const int message : {WM_SYSCOLORCHANGE, WM_THEMECHANGED, WM_SETTINGCHANGE, WM_SETTINGCHANGE})
        control.Tell(static_cast<UINT>(message));
    control.InWindow->Picture();
    CHECK(asked == 2); // one for each caption
}

TEST_CASE("windows on the control hear what the system tells top-level windows alone, once each") {
    const Painted control;
    const Listener first(control.Window()), second(control.Window()), inner(first.Window());
    for (const UINT message :
         {UINT{WM_SYSCOLORCHANGE}, UINT{WM_THEMECHANGED}, UINT{WM_SETTINGCHANGE}, ScaleChanged})
        SendMessageW(control.Window(), message, 11, 0);
    for (const Listener* listener : {&first, &second}) {
        REQUIRE(listener->Heard.size() == 2);
        CHECK(listener->Heard[0].message == WM_SYSCOLORCHANGE);
        CHECK(listener->Heard[1].message == WM_SETTINGCHANGE);
        CHECK(listener->Heard[1].wParam == 11);
    }
    CHECK(inner.Heard.empty()); // the affair of the window that it stands on
}

TEST_CASE("a window that ends others, or the control, when it hears of a change harms nobody") {
    Painted control;
    Listener first(control.Window()), second(control.Window());
    first.Then = [&] { DestroyWindow(second.Window()); };
    second.Then = [&] { DestroyWindow(first.Window()); };
    control.Tell(WM_SYSCOLORCHANGE);
    CHECK(first.Heard.size() + second.Heard.size() == 1);
    Listener last(control.Window());
    last.Then = [&] { control.InWindow->Object().Close(OLECLOSE_NOSAVE); };
    control.Tell(WM_SYSCOLORCHANGE);
    CHECK(last.Heard.size() == 1);
}

namespace {

struct FontOnForm : ControlOnForm {
    FontOnForm() { OpenWithTabs(2); }

    // The form's font, and what it says of it.
    void Change(const wchar_t* name, DISPID changed = DISPID_AMBIENT_FONT) {
        Form().Site().Ambients().FontName = name;
        CHECK(QueryFor<IOleControl>(Form().ControlObject())->OnAmbientPropertyChange(changed) == S_OK);
    }
    ComPtr<IFont> Font() { return QueryFor<IFont>(Get(Control(), L"Font").Object().Get()); }
    std::wstring Name() {
        const auto font = Font();
        return TakeApart(*font.Get()).Name;
    }
    bool MustPaint() { return GetUpdateRect(Form().ControlWindow(), nullptr, FALSE) != FALSE; }
};

} // namespace

TEST_CASE("captions follow the font of the form, and are painted anew") {
    for (const DISPID changed : {DISPID_AMBIENT_FONT, DISPID_UNKNOWN}) {
        FontOnForm test;
        CHECK(!test.MustPaint());
        test.Change(L"DejaVu Serif", changed);
        CHECK(test.Name() == L"DejaVu Serif");
        CHECK(test.MustPaint());
        test.Change(L"DejaVu Sans", changed); // and again
        CHECK(test.Name() == L"DejaVu Sans");
    }
}

TEST_CASE("what is said of other things, or of a font that is the same, paints nothing") {
    FontOnForm test;
    const auto before = test.Font();
    test.Change(L"DejaVu Serif", DISPID_AMBIENT_BACKCOLOR);
    CHECK(test.Font().Get() == before.Get());
    test.Change(L"Tahoma");
    CHECK(test.Font().Get() == before.Get());
    CHECK(!test.MustPaint());
}

TEST_CASE("a font of the control's own stays: one that was set, one that was changed, one that was saved") {
    FontOnForm set;
    PutReference(set.Control(), L"Font", MakeAgain({.Name = L"DejaVu Sans", .Size = 9}).Get());
    set.Change(L"DejaVu Serif");
    CHECK(set.Name() == L"DejaVu Sans");

    FontOnForm changed;
    CY size = {};
    size.int64 = 140000;
    CHECK(changed.Font()->put_Size(size) == S_OK);
    const std::wstring name = changed.Name();
    changed.Change(L"DejaVu Serif");
    CHECK(changed.Name() == name);

    FontOnForm saved;
    PutReference(saved.Control(), L"Font", MakeAgain({.Name = L"DejaVu Sans", .Size = 9}).Get());
    const auto bag = MakeCom<TextPropertyBag>();
    saved.Form().SaveTo(*bag.Get());
    saved.Form().Close();
    saved.Form().OpenFrom(*bag.Get());
    saved.Change(L"DejaVu Serif");
    CHECK(saved.Name() == L"DejaVu Sans");
}

TEST_CASE("a control that was saved with the form's font follows it after it was loaded") {
    FontOnForm test;
    const auto bag = MakeCom<TextPropertyBag>();
    test.Form().SaveTo(*bag.Get());
    test.Form().Close();
    test.Form().OpenFrom(*bag.Get());
    test.Change(L"DejaVu Serif");
    CHECK(test.Name() == L"DejaVu Serif");
}

} // namespace vantik
