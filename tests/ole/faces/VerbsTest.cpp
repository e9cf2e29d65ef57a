// What a host's menu offers to do with the control.
#include <doctest/doctest.h>

#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

enum : LONG { Edit, Properties, NextTab, PreviousTab, AddTab };

// "0 &Edit 3; 1 ..." with the attributes behind the names.
std::wstring VerbsOf(IOleObject& object) {
    ComPtr<IEnumOLEVERB> verbs;
    REQUIRE(object.EnumVerbs(verbs.Put()) == S_OK);
    std::wstring text;
    for (OLEVERB verb = {}; verbs->Next(1, &verb, nullptr) == S_OK; CoTaskMemFree(verb.lpszVerbName)) {
        CHECK(verb.fuFlags == 0);
        text += std::to_wstring(verb.lVerb) + L" " + verb.lpszVerbName + L" " +
                std::to_wstring(verb.grfAttribs) + L"; ";
    }
    return text;
}

struct VerbControl : ReadControl {
    using ReadControl::ReadControl;
    HRESULT Do(LONG verb) const {
        return As<IOleObject>()->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr);
    }
    short ActiveAfter(LONG verb) const {
        CHECK(Do(verb) == S_OK);
        return Active();
    }
    std::wstring Captions() const {
        std::wstring all;
        for (short tab = 0; tab < Count(); ++tab) {
            BSTR caption = nullptr;
            CHECK(Tab->GetTabCaption(&tab, &caption) == S_OK);
            all += std::wstring(caption) + L" ";
            SysFreeString(caption);
        }
        return all;
    }
};

} // namespace

TEST_CASE("The verbs for a menu stand in the order of their numbers") {
    LooseControl control;
    CHECK(VerbsOf(*control.As<IOleObject>().Get()) ==
          L"0 &Edit 3; 1 &Properties... 2; 2 &Next tab 2; 3 P&revious tab 2; 4 A&dd tab 2; 5 &About... 3; ");
}

TEST_CASE("Verbs step through the tabs and round the ends, under design and in use, without an event") {
    for (const bool designed : {true, false}) {
        CAPTURE(designed);
        const VerbControl control;
        control.BeDesigned(designed);
        control.InWindow->Events().Take();
        CHECK(control.ActiveAfter(NextTab) == 1);
        CHECK(control.ActiveAfter(NextTab) == 2);
        CHECK(control.ActiveAfter(NextTab) == 0);
        CHECK(control.ActiveAfter(PreviousTab) == 2);
        CHECK(control.ActiveAfter(PreviousTab) == 1);
        CHECK(control.InWindow->Events().Take().empty());
    }
}

TEST_CASE("Verbs pass over disabled tabs, and find one where none is active") {
    const VerbControl control(4);
    control.Enable(1, false);
    CHECK(control.ActiveAfter(NextTab) == 2);
    control.Enable(2, false);
    CHECK(control.Active() == -1);
    CHECK(control.ActiveAfter(PreviousTab) == 3);
    control.Enable(3, false);
    CHECK(control.ActiveAfter(NextTab) == 0);
    CHECK(control.ActiveAfter(NextTab) == 0); // the only one
    control.Enable(0, false);
    CHECK(control.ActiveAfter(NextTab) == -1);
    CHECK(control.ActiveAfter(PreviousTab) == -1);
}

TEST_CASE("A verb adds a tab behind the last one and shows it, also the first one") {
    const VerbControl control(2);
    CHECK(control.ActiveAfter(AddTab) == 2);
    CHECK(control.Captions() == L"Tab0 Tab1 Tab2 ");
    LooseControl fresh;
    CHECK(fresh.As<IOleObject>()->DoVerb(NextTab, nullptr, nullptr, 0, nullptr, nullptr) == S_OK);
    CHECK(fresh.As<IOleObject>()->DoVerb(AddTab, nullptr, nullptr, 0, nullptr, nullptr) == S_OK);
    CHECK(Get(fresh.Dispatch(), L"TabCount").Number() == 1);
    CHECK(Get(fresh.Dispatch(), L"ActiveTab").Number() == 0);
}

TEST_CASE("A verb that adds a tab too many fails with the control's error") {
    VerbControl control;
    control.InWindow.reset(); // thousands of tabs are not looked at
    control.Tab->put_TabCount(SHRT_MAX);
    CHECK(control.Do(AddTab) == static_cast<HRESULT>(0x800A0006));
    CHECK(control.Count() == SHRT_MAX);
}

} // namespace vantik
