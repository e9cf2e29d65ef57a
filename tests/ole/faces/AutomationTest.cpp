// The dual interface, bound early and late, on a control that nobody placed on a form.
#include <doctest/doctest.h>

#include "host/TextPropertyBag.h"
#include "host/ThreadErrorInfo.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

short TabCountOf(::_VantikFrameTab& tab) {
    short count = -2;
    REQUIRE(tab.get_TabCount(&count) == S_OK);
    return count;
}

std::wstring CaptionOf(::_VantikFrameTab& tab, short index) {
    Bstr caption(L"");
    REQUIRE(tab.GetTabCaption(&index, caption.Put()) == S_OK);
    return caption.Text();
}

constexpr wchar_t NoLayout[] =
    L"No layout for BarWidth = 0, TabCount = 2 on 320 x 240 pixels: Division by zero";

HRESULT InvokeRaw(IDispatch& object, const wchar_t* name, WORD flags, std::vector<VARIANT> arguments,
                  UINT* wrong) {
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    Variant result;
    return object.Invoke(*FindMember(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                         result.Put(), nullptr, wrong);
}

} // namespace

TEST_CASE("A control that was only created has no tabs and every property its default") {
    LooseControl control;
    CHECK(TabCountOf(*control.Tab.Get()) == 0);
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == -1);
    CHECK(Get(control.Dispatch(), L"TabPos").Number() == 2);
    CHECK(Get(control.Dispatch(), L"BarWidth").Number() == 20);
    CHECK(Get(control.Dispatch(), L"TabOffSet").Number() == 10000);
    CHECK(Get(control.Dispatch(), L"DefaultCaption").Text() == L"Tab");
    CHECK(Get(control.Dispatch(), L"DelButton").Flag());
    CHECK(!Get(control.Dispatch(), L"TabBorder").Flag());
    CHECK(Get(control.Dispatch(), L"SkinFile").Text() == L"skin.ini");
    CHECK(Get(control.Dispatch(), L"SkinPath").Text() == L"Skin\\");
    CHECK(QueryFor<IFont>(Get(control.Dispatch(), L"Font").Object().Get()));
}

TEST_CASE("Setting TabCount makes tabs captioned by the default caption") {
    LooseControl control;
    CHECK(control.Tab->put_TabCount(3) == S_OK);
    CHECK(TabCountOf(*control.Tab.Get()) == 3);
    CHECK(CaptionOf(*control.Tab.Get(), 0) == L"Tab0");
    CHECK(CaptionOf(*control.Tab.Get(), 2) == L"Tab2");
    CHECK(CaptionOf(*control.Tab.Get(), 3) == L"-1");
}

TEST_CASE("InsertTab writes the caption that it chose into the caller's variable, however it is passed") {
    LooseControl control;
    control.Tab->put_TabCount(1);
    SUBCASE("early bound") {
        Bstr caption(L"");
        CHECK(control.Tab->InsertTab(0, caption.Put()) == S_OK);
        CHECK(caption.Text() == L"Tab1");
    }
    SUBCASE("early bound, blank") {
        Bstr caption(L"  ");
        CHECK(control.Tab->InsertTab(0, caption.Put()) == S_OK);
        CHECK(caption.Text() == L"Tab1");
    }
    SUBCASE("a reference to text") {
        Bstr caption(L"");
        Call(control.Dispatch(), L"InsertTab", {std::int16_t{0}, caption.Put()});
        CHECK(caption.Text() == L"Tab1");
    }
    SUBCASE("a reference to a variant") {
        Variant caption(L"");
        VARIANT reference = {};
        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = const_cast<VARIANT*>(&caption.Get());
        VARIANT index = {};
        index.vt = VT_I4;
        CHECK(InvokeRaw(control.Dispatch(), L"InsertTab", DISPATCH_METHOD, {reference, index}, nullptr) ==
              S_OK);
        CHECK(caption.Text() == L"Tab1");
    }
    SUBCASE("left out") { CHECK(control.Tab->InsertTab(0, nullptr) == S_OK); }
    SUBCASE("left out, late bound") { Call(control.Dispatch(), L"InsertTab", {std::int16_t{0}}); }
    SUBCASE("marked as left out") {
        Call(control.Dispatch(), L"InsertTab", {std::int16_t{0}, Variant::Omitted()});
    }
    CHECK(CaptionOf(*control.Tab.Get(), 1) == L"Tab1");
    CHECK(TabCountOf(*control.Tab.Get()) == 2);
}

TEST_CASE("InsertTab writes its caption back also when a later step raises, however it is passed") {
    LooseControl control;
    control.Tab->put_TabCount(1);
    CHECK(control.Tab->put_BarWidth(0) == HRESULT(0x800A000B)); // and so will every repaint from now on
    SUBCASE("early bound") {
        Bstr caption(L"");
        CHECK(control.Tab->InsertTab(0, caption.Put()) == HRESULT(0x800A000B));
        CHECK(caption.Text() == L"Tab1");
    }
    SUBCASE("a reference to text") {
        Bstr caption(L"");
        CHECK_THROWS_AS(Call(control.Dispatch(), L"InsertTab", {std::int16_t{0}, caption.Put()}),
                        AutomationError);
        CHECK(caption.Text() == L"Tab1");
    }
    SUBCASE("a reference to a variant") {
        Variant caption(L"");
        VARIANT reference = {};
        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = const_cast<VARIANT*>(&caption.Get());
        VARIANT index = {};
        index.vt = VT_I4;
        CHECK(InvokeRaw(control.Dispatch(), L"InsertTab", DISPATCH_METHOD, {reference, index}, nullptr) ==
              DISP_E_EXCEPTION);
        CHECK(caption.Text() == L"Tab1");
    }
    CHECK(CaptionOf(*control.Tab.Get(), 1) == L"Tab1");
}

TEST_CASE("A caption that the caller gave is kept, and its variable left alone") {
    LooseControl control;
    control.Tab->put_TabCount(1);
    Bstr caption(L"Mine");
    const BSTR before = caption.Get();
    CHECK(control.Tab->InsertTab(0, caption.Put()) == S_OK);
    CHECK(caption.Get() == before);
    CHECK(CaptionOf(*control.Tab.Get(), 1) == L"Mine");
}

TEST_CASE("An omitted caption of SetBarCaption is empty, an omitted refresh false") {
    LooseControl control;
    control.Tab->put_TabCount(2);
    short index = 1;
    CHECK(control.Tab->SetBarCaption(&index, nullptr, nullptr) == S_OK);
    CHECK(CaptionOf(*control.Tab.Get(), 1).empty());
    Call(control.Dispatch(), L"SetBarCaption", {std::int16_t{1}, L"a"});
    CHECK(CaptionOf(*control.Tab.Get(), 1) == L"a");
    Call(control.Dispatch(), L"SetBarCaption", {std::int16_t{1}, Variant::Omitted(), true});
    CHECK(CaptionOf(*control.Tab.Get(), 1).empty());
}

TEST_CASE("Icon keys are kept in upper case, and inserted tabs say that they have none") {
    LooseControl control;
    control.Tab->put_TabCount(1);
    control.Tab->InsertTab(0, nullptr);
    CHECK(Call(control.Dispatch(), L"GetTabIco", {std::int16_t{0}}).Text().empty());
    CHECK(Call(control.Dispatch(), L"GetTabIco", {std::int16_t{1}}).Text() == L"-1");
    Call(control.Dispatch(), L"SetBarIco", {std::int16_t{0}, L"sun"});
    CHECK(Call(control.Dispatch(), L"GetTabIco", {std::int16_t{0}}).Text() == L"SUN");
}

TEST_CASE("Flags are the host language's True and False whatever number a caller means by true") {
    LooseControl control;
    CHECK(control.Tab->put_TabBorder(1) == S_OK);
    VARIANT_BOOL border = 0;
    CHECK(control.Tab->get_TabBorder(&border) == S_OK);
    CHECK(border == VARIANT_TRUE);
    control.Tab->put_TabCount(2);
    short index = 0;
    VARIANT_BOOL enable = 17;
    control.Tab->SetBarEnable(&index, &enable);
    VARIANT_BOOL enabled = 0;
    control.Tab->GetTabEnable(&index, &enabled);
    CHECK(enabled == VARIANT_TRUE);

    VARIANT odd = {};
    odd.vt = VT_BOOL;
    odd.boolVal = 5;
    for (const Variant& value : {Variant(odd), Variant(std::int32_t{70000}), Variant(L"True")}) {
        Put(control.Dispatch(), L"TabBorder", false);
        Put(control.Dispatch(), L"TabBorder", value);
        CHECK(control.Tab->get_TabBorder(&border) == S_OK);
        CHECK(border == VARIANT_TRUE);
    }
}

TEST_CASE("Every property gives back what was assigned to it") {
    LooseControl control;
    const std::vector<std::pair<const wchar_t*, Variant>> values = {
        {L"TabBarPos", std::int32_t{3}},
        {L"TabPos", std::int32_t{1}},
        {L"BarWidth", std::int16_t{77}},
        {L"TabBarPosXJust", std::int16_t{-5}},
        {L"TabBarPosYJust", std::int16_t{6}},
        {L"TabOffSet", std::int32_t{123456}},
        {L"DefaultCaption", L"页"},
        {L"CaptionPos", std::int32_t{2}},
        {L"CaptionColor0", std::int32_t{0x123456}},
        {L"CaptionColor1", std::int32_t(0x80000005)},
        {L"CaptionXjust", std::int16_t{1}},
        {L"CaptionYjust", std::int16_t{-2}},
        {L"IcoXjust", std::int16_t{3}},
        {L"IcoYjust", std::int16_t{-4}},
        {L"DelButton", false},
        {L"DelBtnXJust", std::int16_t{5}},
        {L"DelBtnYJust", std::int16_t{-6}},
        {L"NavBtnYjust", std::int16_t{7}},
        {L"NavBtnXjust", std::int16_t{-8}},
        {L"FixOcxList", L"a,b"},
        {L"TabToTab", std::int16_t{9}},
        {L"TabBorder", true},
        {L"FrameDist", std::int16_t{10}},
    };
    for (const auto& [name, value] : values) Put(control.Dispatch(), name, value);
    for (const auto& [name, value] : values) {
        CAPTURE(Variant(name).Text().size());
        CHECK(Get(control.Dispatch(), name).Text() == value.Text());
    }
}

TEST_CASE("The font and the picture are held as they were assigned, by either way of putting") {
    LooseControl control;
    const auto font = QueryFor<IFont>(Get(control.Dispatch(), L"Font").Object().Get());
    ComPtr<IFont> other;
    REQUIRE(font->Clone(other.Put()) == S_OK);
    PutReference(control.Dispatch(), L"Font", other.As<IDispatch>().Get());
    CHECK(QueryFor<IFont>(Get(control.Dispatch(), L"Font").Object().Get()).Get() == other.Get());
    Put(control.Dispatch(), L"Font", font.As<IDispatch>().Get());
    CHECK(QueryFor<IFont>(Get(control.Dispatch(), L"Font").Object().Get()).Get() == font.Get());

    PICTDESC none = {};
    none.cbSizeofstruct = sizeof none;
    none.picType = PICTYPE_NONE;
    ComPtr<IDispatch> picture;
    REQUIRE(OleCreatePictureIndirect(&none, __uuidof(IPictureDisp), TRUE, picture.PutVoid()) == S_OK);
    PutReference(control.Dispatch(), L"Picture", picture.Get());
    const auto held = QueryFor<IUnknown>(Get(control.Dispatch(), L"Picture").Object().Get());
    CHECK(held.Get() == QueryFor<IUnknown>(picture.Get()).Get());
    PutReference(control.Dispatch(), L"Picture", nullptr);
    CHECK(!Get(control.Dispatch(), L"Picture").Object());
}

TEST_CASE("A run-time error is an HRESULT of its number, with its source and description") {
    LooseControl control;
    control.Tab->put_TabCount(2);
    SetErrorInfo(0, nullptr);
    CHECK(control.Tab->put_BarWidth(0) == HRESULT(0x800A000B)); // the layout divides by it
    const auto error = ThreadErrorInfo::Take();
    CHECK(error.Source == L"VantikFrameTabProject.VantikFrameTab");
    CHECK(error.Description == NoLayout);
    CHECK(error.Interface == IID__VantikFrameTab);
    const auto support = control.As<ISupportErrorInfo>();
    for (const IID& telling : {IID__VantikFrameTab, IID_IPersistPropertyBag, IID_IPersistStreamInit,
                               IID_IPersistStorage, IID_IOleObject, IID_IOleInPlaceObject})
        CHECK(support->InterfaceSupportsErrorInfo(telling) == S_OK);
    CHECK(support->InterfaceSupportsErrorInfo(IID_IViewObject) == S_FALSE);
    try {
        Put(control.Dispatch(), L"BarWidth", std::int16_t{0});
        FAIL("no error came");
    } catch (const AutomationError& late) {
        CHECK(late.Number() == 11);
        CHECK(late.Description() == NoLayout);
    }
}

TEST_CASE("Wrong counts and types are refused with the number of the argument, and change nothing") {
    LooseControl control;
    control.Tab->put_TabCount(2);
    IDispatch& tab = control.Dispatch();
    const Variant text(L"abc"), one(std::int32_t{1}), large(std::int32_t{40000});
    UINT wrong = 99;
    CHECK(InvokeRaw(tab, L"RemoveTab", DISPATCH_METHOD, {}, &wrong) == DISP_E_BADPARAMCOUNT);
    CHECK(InvokeRaw(tab, L"RemoveTab", DISPATCH_METHOD, {one.Get(), one.Get()}, &wrong) ==
          DISP_E_BADPARAMCOUNT);
    CHECK(InvokeRaw(tab, L"RemoveTab", DISPATCH_METHOD, {text.Get()}, &wrong) == DISP_E_TYPEMISMATCH);
    CHECK(wrong == 0);
    CHECK(InvokeRaw(tab, L"SetBarCaption", DISPATCH_METHOD, {text.Get(), large.Get()}, &wrong) ==
          DISP_E_OVERFLOW);
    CHECK(wrong == 1);
    CHECK(InvokeRaw(tab, L"RemoveTab", DISPATCH_PROPERTYGET, {one.Get()}, &wrong) == DISP_E_MEMBERNOTFOUND);
    CHECK(TabCountOf(*control.Tab.Get()) == 2);
    DISPID id = 0;
    auto* unknown = const_cast<wchar_t*>(L"NoSuchMember");
    CHECK(tab.GetIDsOfNames(IID_NULL, &unknown, 1, 0, &id) == DISP_E_UNKNOWNNAME);
    CHECK(tab.Invoke(4711, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr) == E_POINTER);
    DISPPARAMS none = {};
    CHECK(tab.Invoke(4711, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr) ==
          DISP_E_MEMBERNOTFOUND);
    DISPPARAMS nameless = {};
    nameless.rgvarg = const_cast<VARIANT*>(&one.Get());
    nameless.cArgs = nameless.cNamedArgs = 1;
    CHECK(tab.Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYPUT, &nameless, nullptr, nullptr, nullptr) ==
          E_POINTER);
    CHECK(tab.Invoke(1, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr) ==
          DISP_E_UNKNOWNINTERFACE);
}

TEST_CASE("Null pointers of early-bound callers are refused") {
    LooseControl control;
    control.Tab->put_TabCount(2);
    short index = 0;
    CHECK(control.Tab->get_TabCount(nullptr) == E_POINTER);
    CHECK(control.Tab->get_DefaultCaption(nullptr) == E_POINTER);
    CHECK(control.Tab->get_Font(nullptr) == E_POINTER);
    CHECK(control.Tab->GetTabCaption(nullptr, nullptr) == E_POINTER);
    CHECK(control.Tab->GetTabCaption(&index, nullptr) == E_POINTER);
    CHECK(control.Tab->SetBarEnable(&index, nullptr) == E_POINTER);
    CHECK(control.Tab->SetBarIco(&index, nullptr) == E_POINTER);
    CHECK(control.Tab->zSubclass_Proc(0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr) == E_POINTER);
    CHECK(control.Tab->put_DefaultCaption(nullptr) == S_OK); // a null text is the empty one
    CHECK(Get(control.Dispatch(), L"DefaultCaption").Text().empty());
}

TEST_CASE("The hook's callback is callable: the wheel steps, every other message does nothing") {
    LooseControl control;
    control.Tab->put_TabCount(3);
    control.Tab->put_ActiveTab(0);
    VARIANT_BOOL handled = VARIANT_FALSE;
    long result = 7, window = 0, message = WM_MOUSEMOVE, wParam = 120 << 16, lParam = 0;
    CHECK(control.Tab->zSubclass_Proc(VARIANT_TRUE, &handled, &result, &window, &message, &wParam, &lParam) ==
          S_OK);
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == 0);
    message = WM_MOUSEWHEEL;
    CHECK(control.Tab->zSubclass_Proc(VARIANT_TRUE, &handled, &result, &window, &message, &wParam, &lParam) ==
          S_OK);
    CHECK(Get(control.Dispatch(), L"ActiveTab").Number() == 1);
    CHECK(handled == VARIANT_FALSE);
    CHECK(result == 7);
}

TEST_CASE("A sink of property changes hears of each assignment under the property's number") {
    LooseControl control;
    REQUIRE(control.As<IPersistPropertyBag>()->Load(MakeCom<TextPropertyBag>().Get(), nullptr) ==
            S_OK); // makes Temp
    struct Sink final : IPropertyNotifySink {
        std::vector<DISPID> Changed;
        STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
            *object = iid == IID_IUnknown || iid == IID_IPropertyNotifySink ? this : nullptr;
            return *object ? S_OK : E_NOINTERFACE;
        }
        STDMETHODIMP_(ULONG) AddRef() noexcept override { return 1; }
        STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
        STDMETHODIMP OnChanged(DISPID id) noexcept override {
            Changed.push_back(id);
            return S_OK;
        }
        STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }
    } sink;
    ComPtr<IConnectionPoint> point;
    REQUIRE(control.As<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink,
                                                                         point.Put()) == S_OK);
    DWORD cookie = 0;
    REQUIRE(point->Advise(&sink, &cookie) == S_OK);
    const std::vector<const wchar_t*> names = {
        L"TabBarPos",    L"TabPos",      L"BarWidth",       L"TabBarPosXJust", L"TabBarPosYJust",
        L"TabOffSet",    L"CaptionPos",  L"CaptionColor0",  L"CaptionColor1",  L"CaptionXjust",
        L"CaptionYjust", L"IcoXjust",    L"IcoYjust",       L"DelButton",      L"DelBtnXJust",
        L"DelBtnYJust",  L"NavBtnYjust", L"NavBtnXjust",    L"FixOcxList",     L"TabToTab",
        L"TabBorder",    L"FrameDist",   L"DefaultCaption", L"TabCount"};
    std::vector<DISPID> expected;
    for (const wchar_t* name : names) {
        Put(control.Dispatch(), name, std::int16_t{1});
        expected.push_back(*FindMember(control.Dispatch(), name));
    }
    Put(control.Dispatch(), L"ActiveTab", std::int16_t{0});
    expected.push_back(*FindMember(control.Dispatch(), L"ActiveTab"));
    PutReference(control.Dispatch(), L"Font",
                 QueryFor<IDispatch>(Get(control.Dispatch(), L"Font").Object().Get()).Get());
    expected.push_back(*FindMember(control.Dispatch(), L"Font"));
    PutReference(control.Dispatch(), L"Picture", nullptr);
    expected.push_back(*FindMember(control.Dispatch(), L"Picture"));
    for (const auto& [name, value] : {std::pair(L"SkinPath", L"Temp"), std::pair(L"SkinFile", L"skin.ini")}) {
        Put(control.Dispatch(), name, value);
        expected.push_back(*FindMember(control.Dispatch(), name));
    }
    CHECK(sink.Changed == expected);
    CHECK(point->Unadvise(cookie) == S_OK);
}

} // namespace vantik
