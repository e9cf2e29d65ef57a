// What a form's code may do from inside each of the six events, down to ending the control.
#include <doctest/doctest.h>

#include "host/ComObject.h"
#include "host/ControlOnForm.h"
#include "host/Input.h"
#include "ole/ActingPicture.h"

namespace vantik {

namespace {

using Deed = void (*)(ControlOnForm&);

// Of 40 tabs seven bars of 60 fit. They begin behind the corner, which is 6 wide; the buttons, each 15 wide, begin 8
// behind the bars and leave a gap of 2 before the menu button.
constexpr std::int16_t Tabs = 40;
constexpr LONG Middle = 11;
constexpr LONG FirstBar = 6, Buttons = FirstBar + 7 * 60 + 8;
constexpr POINT Previous = {Buttons + 7, Middle}, Next = {Buttons + 22, Middle},
                Menu = {Buttons + 39, Middle};
constexpr POINT OnBar(int tab) noexcept { return {FirstBar + tab * 60 + 20, Middle}; }
constexpr POINT OnCloseButton(int tab) noexcept { return {FirstBar + (tab + 1) * 60 - 12, Middle}; }

void Click(ControlOnForm& test, POINT point) {
    PressButton(test.Form(), point);
    ReleaseButton(test.Form(), point);
}

struct Cause {
    const char* Name;
    const wchar_t* Event;
    Deed Raise;
};

constexpr Cause Causes[] = {
    {"the menu button", L"DownBarDown", [](ControlOnForm& t) { Click(t, Menu); }},
    {"the previous button", L"PreTabDown",
     [](ControlOnForm& t) {
         Click(t, Next);
         Click(t, Previous);
     }},
    {"the next button", L"NextTabDown", [](ControlOnForm& t) { Click(t, Next); }},
    {"a move", L"TabMove", [](ControlOnForm& t) { MovePointer(t.Form(), OnBar(1)); }},
    {"a press on a bar", L"TabDown", [](ControlOnForm& t) { Click(t, OnBar(2)); }},
    {"an arrow key", L"TabDown", [](ControlOnForm& t) { PressKey(t.Form(), VK_RIGHT); }},
    {"the wheel", L"TabDown", [](ControlOnForm& t) { TurnWheel(t.Form(), 1); }},
    {"a press on a close button", L"TabClose", [](ControlOnForm& t) { Click(t, OnCloseButton(1)); }},
};

// Does the deed inside the cause's event, once, so that what it sets off itself does not do it for ever.
void DoInside(ControlOnForm& test, const Cause& cause, Deed deed) {
    bool done = false;
    test.DuringEvent = [&](EventCall& event) {
        if (event.Name() != cause.Event || std::exchange(done, true)) return;
        deed(test);
    };
    cause.Raise(test);
    CHECK(done);
    test.DuringEvent = nullptr;
}

// Three saved tabs, and one key that may not be readable.
class ThreeTabs final : public ComObject<IPropertyBag> {
public:
    explicit ThreeTabs(std::wstring_view failingKey) : failingKey_(failingKey) {}
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        if (name == failingKey_) return STG_E_READFAULT;
        const bool isWidth = std::wstring_view(name) == L"BarWidth";
        if (!isWidth && std::wstring_view(name) != L"TabCount") return E_INVALIDARG;
        value->vt = VT_I2;
        value->iVal = isWidth ? 60 : 3;
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) noexcept override { return E_NOTIMPL; }

private:
    std::wstring_view failingKey_;
};

HRESULT LoadThreeTabs(ControlOnForm& test, std::wstring_view failingKey = {}) {
    const auto persist = QueryFor<IPersistPropertyBag>(test.Form().ControlObject());
    return persist->Load(MakeCom<ThreeTabs>(failingKey).Get(), nullptr);
}

void CheckUsable(ControlOnForm& test) {
    const int tabs = test.Number(L"TabCount");
    CHECK(tabs >= 1);
    for (int i = 0; i < tabs; ++i)
        CHECK(!Call(test.Control(), L"GetTabCaption", {static_cast<std::int16_t>(i)}).Text().empty());
    Put(test.Control(), L"ActiveTab", std::int16_t{0});
    CHECK(test.Number(L"ActiveTab") == 0);
    Call(test.Control(), L"InsertTab", {std::int16_t{0}});
    CHECK(test.Number(L"TabCount") == tabs + 1);
    CHECK(test.Number(L"ActiveTab") == 1);
    test.Events.clear();
    PressKey(test.Form(), VK_LEFT);
    REQUIRE(test.Events.size() == 1);
    CHECK(test.Events.front().starts_with(L"TabDown(")); // which tab depends on how far the row is scrolled
}

} // namespace

TEST_CASE("From inside each event the form may call back into the control") {
    constexpr struct {
        const char* Name;
        Deed Do;
    } deeds[] = {
        {"RemoveTab", [](ControlOnForm& t) { Call(t.Control(), L"RemoveTab", {std::int16_t{0}}); }},
        {"RemoveTab down to one",
         [](ControlOnForm& t) {
             while (t.Number(L"TabCount") > 1) Call(t.Control(), L"RemoveTab", {std::int16_t{1}});
         }},
        {"InsertTab", [](ControlOnForm& t) { Call(t.Control(), L"InsertTab", {std::int16_t{0}}); }},
        {"reading TabCount", [](ControlOnForm& t) { CHECK(t.Number(L"TabCount") == Tabs); }},
        {"setting TabCount", [](ControlOnForm& t) { Put(t.Control(), L"TabCount", std::int16_t{1}); }},
        {"SkinFile", [](ControlOnForm& t) { Put(t.Control(), L"SkinFile", L"skin.ini"); }},
        {"a load", [](ControlOnForm& t) { CHECK(LoadThreeTabs(t) == S_OK); }},
        {"a load that fails",
         [](ControlOnForm& t) { CHECK(LoadThreeTabs(t, L"FrameDist") == STG_E_READFAULT); }},
        {"painting", [](ControlOnForm& t) { UpdateWindow(t.Form().ControlWindow()); }},
    };
    ControlOnForm test;
    for (const auto& deed : deeds) {
        for (const Cause& cause : Causes) {
            CAPTURE(std::string(deed.Name));
            CAPTURE(std::string(cause.Name));
            test.OpenWithTabs(Tabs);
            DoInside(test, cause, deed.Do);
            CheckUsable(test);
        }
    }
    test.Form().Close();
    CHECK(test.Module().CanUnload());
}

TEST_CASE("From inside each event the form may close and release the control") {
    ControlOnForm test;
    for (const Cause& cause : Causes) {
        CAPTURE(std::string(cause.Name));
        test.OpenWithTabs(Tabs);
        const HWND window = test.Form().ControlWindow();
        DoInside(test, cause, [](ControlOnForm& t) { t.Form().Close(); });
        CHECK(!IsWindow(window));
        CHECK(test.Module().CanUnload());
    }
}

TEST_CASE("From inside each event the form may destroy the control's window and go on with the control") {
    ControlOnForm test;
    for (const Cause& cause : Causes) {
        CAPTURE(std::string(cause.Name));
        test.OpenWithTabs(Tabs);
        DoInside(test, cause, [](ControlOnForm& t) { DestroyWindow(t.Form().ControlWindow()); });
        CHECK(!test.Form().ControlWindow());
        Put(test.Control(), L"TabCount", std::int16_t{3});
        Put(test.Control(), L"ActiveTab", std::int16_t{2});
        CHECK(test.Number(L"ActiveTab") == 2);
        test.Form().Close();
        CHECK(test.Module().CanUnload());
    }
}

TEST_CASE("From inside each event the form may destroy its own window and release the control after that") {
    for (const bool atOnce : {true, false}) {
        for (const Cause& cause : Causes) {
            CAPTURE(atOnce);
            CAPTURE(std::string(cause.Name));
            ControlOnForm test;
            test.OpenWithTabs(Tabs);
            const HWND window = test.Form().ControlWindow();
            DoInside(test, cause,
                     atOnce ? [](ControlOnForm& t) {
                         DestroyWindow(t.Form().Window().Handle());
                         t.Form().Close();
                     } : [](ControlOnForm& t) { DestroyWindow(t.Form().Window().Handle()); });
            CHECK(!IsWindow(window));
            test.Form().Close();
            CHECK(test.Module().CanUnload());
        }
    }
}

namespace {

struct OwnedTestBitmap {
    ~OwnedTestBitmap() { DeleteObject(Handle); }
    HBITMAP Handle = CreateBitmap(8, 8, 1, 1, nullptr);
};

} // namespace

TEST_CASE("A picture whose code starts the control anew while a button is painted does no harm") {
    const OwnedTestBitmap bitmap;
    ActingPicture picture(bitmap.Handle);
    ControlOnForm test;
    test.OpenWithTabs(Tabs);
    PutReference(test.Control(), L"Picture", static_cast<IPictureDisp*>(&picture));
    MovePointer(test.Form(), Next);
    bool done = false;
    picture.WhenAsked = [&] {
        done = true;
        CHECK(QueryFor<IPersistStreamInit>(test.Form().ControlObject())->InitNew() == S_OK);
    };
    PressButton(test.Form(), Next);
    CHECK(done);
    CHECK(test.Number(L"TabCount") == 0);
    Put(test.Control(), L"TabCount", std::int16_t{2});
    CheckUsable(test);
    test.Form().Close();
    CHECK(test.Module().CanUnload());
}

TEST_CASE("A picture that goes while the control asks for its bitmap is not asked again") {
    const OwnedTestBitmap bitmap;
    ActingPicture picture(bitmap.Handle);
    ControlOnForm test;
    test.OpenWithTabs(Tabs);
    PutReference(test.Control(), L"Picture", static_cast<IPictureDisp*>(&picture));
    PumpMessages(test.Form());
    bool done = false;
    picture.WhenAsked = [&] {
        done = true;
        PutReference(test.Control(), L"Picture", nullptr);
    };
    Put(test.Control(), L"TabCount", std::int16_t{3});
    PumpMessages(test.Form());
    CHECK(done);
    CHECK(picture.CallsAfterEnd == 0);
    test.Form().Close();
    CHECK(test.Module().CanUnload());
}

TEST_CASE("A picture that goes while the control is saved is not saved any more") {
    const OwnedTestBitmap bitmap;
    ActingPicture picture(bitmap.Handle);
    ControlOnForm test;
    test.OpenWithTabs(Tabs);
    PutReference(test.Control(), L"Picture", static_cast<IPictureDisp*>(&picture));
    PumpMessages(test.Form());
    bool done = false;
    picture.WhenAsked = [&] {
        done = true;
        PutReference(test.Control(), L"Picture", nullptr);
    };
    const auto bag = MakeCom<TextPropertyBag>();
    QueryFor<IPersistPropertyBag>(test.Form().ControlObject())->Save(bag.Get(), FALSE, TRUE);
    CHECK(done);
    CHECK(picture.CallsAfterEnd == 0);
}

} // namespace vantik
