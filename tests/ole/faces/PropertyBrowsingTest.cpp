// What a property browser learns about single properties.
#include <doctest/doctest.h>

#include "ole/pages/PageUnderTest.h"

namespace vantik {

namespace {

struct BrowsedControl : LooseControl {
    ComPtr<IPerPropertyBrowsing> Browsing = As<IPerPropertyBrowsing>();
    ~BrowsedControl() { Browsing.Reset(); }

    DISPID Id(const wchar_t* name) { return *FindMember(Dispatch(), name); }
    CLSID Page(const wchar_t* name) {
        CLSID page = CLSID_NULL;
        const HRESULT result = Browsing->MapPropertyToPage(Id(name), &page);
        CHECK(result == (page == CLSID_NULL ? PERPROP_E_NOPAGEAVAILABLE : S_OK));
        return page;
    }
    std::wstring Text(const wchar_t* name, HRESULT expected = S_OK) {
        Bstr text(L"");
        CHECK(Browsing->GetDisplayString(Id(name), text.Put()) == expected);
        return text.Text();
    }
};

// "NAME=value" for each, and the browser's memory freed.
std::wstring ChoicesOf(BrowsedControl& control, const wchar_t* property) {
    CALPOLESTR texts = {};
    CADWORD cookies = {};
    REQUIRE(control.Browsing->GetPredefinedStrings(control.Id(property), &texts, &cookies) == S_OK);
    REQUIRE(texts.cElems == cookies.cElems);
    std::wstring choices;
    for (ULONG i = 0; i < texts.cElems; ++i) {
        VARIANT value = {};
        REQUIRE(control.Browsing->GetPredefinedValue(control.Id(property), cookies.pElems[i], &value) ==
                S_OK);
        REQUIRE(value.vt == VT_I4);
        choices += std::wstring(texts.pElems[i]) + L"=" + std::to_wstring(value.lVal) + L" ";
        CoTaskMemFree(texts.pElems[i]);
    }
    CoTaskMemFree(texts.pElems);
    CoTaskMemFree(cookies.pElems);
    return choices;
}

} // namespace

TEST_CASE(
    "Colours, the font and the picture have their stock pages, the skin has a page, other properties have "
    "none") {
    BrowsedControl control;
    CHECK(control.Page(L"CaptionColor0") == CLSID_CColorPropPage);
    CHECK(control.Page(L"CaptionColor1") == CLSID_CColorPropPage);
    CHECK(control.Page(L"Font") == CLSID_CFontPropPage);
    CHECK(control.Page(L"Picture") == CLSID_CPicturePropPage);
    CHECK(control.Page(L"SkinFile") == SkinPageId);
    CHECK(control.Page(L"SkinPath") == SkinPageId);
    CHECK(control.Page(L"BarWidth") == CLSID_NULL); // browsers edit it by themselves
    CHECK(control.Page(L"TabPos") == CLSID_NULL);
}

TEST_CASE("A property of an enumeration offers its constants by name") {
    BrowsedControl control;
    CHECK(ChoicesOf(control, L"TabPos") == L"WindowLeft=0 WindowRight=1 Windowtop=2 WindowBottom=3 ");
    CHECK(ChoicesOf(control, L"TabBarPos") == L"TabLeft=0 TabMiddle=1 TabRight=2 TabCustom=3 ");
    CHECK(ChoicesOf(control, L"CaptionPos") == L"AlignLeft=0 AlignMiddle=1 AlignRight=2 ");
    CHECK(ChoicesOf(control, L"BarWidth").empty());
    CHECK(ChoicesOf(control, L"Font").empty());
    VARIANT value = {};
    CHECK(control.Browsing->GetPredefinedValue(control.Id(L"TabPos"), 4, &value) == E_INVALIDARG);
    CHECK(value.vt == VT_EMPTY);
}

TEST_CASE("Values are shown as text, those of an enumeration by name; an object is left to the browser") {
    BrowsedControl control;
    CHECK(control.Text(L"TabPos") == L"Windowtop");
    Put(control.Dispatch(), L"TabPos", std::int32_t{0});
    CHECK(control.Text(L"TabPos") == L"WindowLeft");
    Put(control.Dispatch(), L"TabPos", std::int32_t{17}); // stored as it is, without a name
    CHECK(control.Text(L"TabPos") == L"17");
    CHECK(control.Text(L"BarWidth") == L"20");
    CHECK(control.Text(L"DefaultCaption") == L"Tab");
    CHECK(control.Text(L"Font", S_FALSE).empty());
}

TEST_CASE("What is no property, and null pointers, are refused") {
    BrowsedControl control;
    CLSID page = CLSID_NULL;
    Bstr text(L"");
    CHECK(control.Browsing->MapPropertyToPage(control.Id(L"RemoveTab"), &page) == DISP_E_MEMBERNOTFOUND);
    CHECK(control.Browsing->GetDisplayString(4711, text.Put()) == DISP_E_MEMBERNOTFOUND);
    CHECK(control.Browsing->MapPropertyToPage(1, nullptr) == E_POINTER);
    CHECK(control.Browsing->GetDisplayString(1, nullptr) == E_POINTER);
    CADWORD cookies = {};
    CHECK(control.Browsing->GetPredefinedStrings(1, nullptr, &cookies) == E_POINTER);
    CHECK(control.Browsing->GetPredefinedValue(1, 0, nullptr) == E_POINTER);
}

} // namespace vantik
