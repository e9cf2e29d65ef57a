// Screen readers keep what they were given, ask with anything, and from other processes.
#include <doctest/doctest.h>

#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

// Every method, with arguments that would do.
std::vector<HRESULT> AskEverything(const Node& node) {
    IAccessible& object = *node.operator->();
    const VARIANT self = ChildId(CHILDID_SELF);
    BSTR text = nullptr;
    VARIANT value = {};
    LONG number[4] = {};
    ComPtr<IDispatch> other;
    std::vector<HRESULT> results = {
        object.get_accParent(other.Put()),
        object.get_accChildCount(number),
        object.get_accChild(self, other.Put()),
        object.get_accName(self, &text),
        object.get_accDescription(self, &text),
        object.get_accDefaultAction(self, &text),
        object.get_accValue(self, &text),
        object.get_accHelp(self, &text),
        object.get_accHelpTopic(&text, self, number),
        object.get_accKeyboardShortcut(self, &text),
        object.get_accRole(self, &value),
        object.get_accState(self, &value),
        object.get_accFocus(&value),
        object.get_accSelection(&value),
        object.accSelect(SELFLAG_TAKEFOCUS, self),
        object.accLocation(&number[0], &number[1], &number[2], &number[3], self),
        object.accNavigate(NAVDIR_NEXT, self, &value),
        object.accHitTest(1, 1, &value),
        object.accDoDefaultAction(self),
    };
    HWND window = nullptr;
    const auto enumerator = QueryFor<IEnumVARIANT>(&object);
    results.push_back(QueryFor<IOleWindow>(&object)->GetWindow(&window));
    results.push_back(enumerator->Next(1, &value, nullptr));
    results.push_back(enumerator->Skip(1));
    return results;
}

void CheckGone(const Node& node) {
    for (const HRESULT result : AskEverything(node)) CHECK(result == CO_E_OBJNOTCONNECTED);
}

} // namespace

TEST_CASE("what was given out outlives tab, window and control, and says that they are gone") {
    ReadControl control;
    const Node root = control.Root();
    const std::vector<Node> children = root.Children();
    const Node button = children[2].Children().front();
    control.Tab->put_TabCount(2);
    CheckGone(children[2]);
    CheckGone(button);
    CHECK(children[1].Name() == L"Tab1");
    control.As<IOleInPlaceObject>()->InPlaceDeactivate();
    CheckGone(root);
    CheckGone(children[1]);
    control.As<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
    CHECK(children[1].Name() == L"Tab1");
    control.InWindow.reset();
    control.Release();
    CheckGone(root);
    CheckGone(children[1]);
    CHECK(!control.Module().CanUnload());
}

TEST_CASE("nothing keeps the module when the readers have let go") {
    ReadControl control;
    { CHECK(control.Tree() != ""); }
    control.InWindow.reset();
    control.Release();
    CHECK(control.Module().CanUnload());
}

TEST_CASE("nulls and numbers of children that are not there are invalid arguments") {
    const ReadControl control;
    for (const Node& node :
         {control.Root(), control.Child(0), control.Child(4), control.Root().Children().back()}) {
        IAccessible& object = *node.operator->();
        BSTR text = nullptr;
        VARIANT value = {};
        LONG number = 0;
        ComPtr<IDispatch> other;
        VARIANT noNumber = {}, nowhere = {}, nothing = {}, fraction = {};
        noNumber.vt = VT_BSTR;
        nowhere.vt = VT_BYREF | VT_I4;
        fraction.vt = VT_R8, fraction.dblVal = 1;
        for (const VARIANT& bad : {ChildId(-1), ChildId(99), ChildId(LONG_MIN), ChildId(LONG_MAX), noNumber,
                                   nowhere, nothing, fraction}) {
            CHECK(object.get_accName(bad, &text) == E_INVALIDARG);
            CHECK(object.get_accRole(bad, &value) == E_INVALIDARG);
            CHECK(object.get_accState(bad, &value) == E_INVALIDARG);
            CHECK(object.get_accChild(bad, other.Put()) == E_INVALIDARG);
            CHECK(object.accDoDefaultAction(bad) == E_INVALIDARG);
            CHECK(object.accSelect(SELFLAG_TAKEFOCUS, bad) == E_INVALIDARG);
            CHECK(object.accLocation(&number, &number, &number, &number, bad) == E_INVALIDARG);
            CHECK(object.accNavigate(NAVDIR_NEXT, bad, &value) == E_INVALIDARG);
        }
        const VARIANT self = ChildId(CHILDID_SELF);
        CHECK(object.get_accParent(nullptr) == E_INVALIDARG);
        CHECK(object.get_accChildCount(nullptr) == E_INVALIDARG);
        CHECK(object.get_accChild(self, nullptr) == E_INVALIDARG);
        CHECK(object.get_accName(self, nullptr) == E_INVALIDARG);
        CHECK(object.get_accRole(self, nullptr) == E_INVALIDARG);
        CHECK(object.get_accState(self, nullptr) == E_INVALIDARG);
        CHECK(object.get_accFocus(nullptr) == E_INVALIDARG);
        CHECK(object.get_accSelection(nullptr) == E_INVALIDARG);
        CHECK(object.accLocation(nullptr, &number, &number, &number, self) == E_INVALIDARG);
        CHECK(object.accNavigate(NAVDIR_NEXT, self, nullptr) == E_INVALIDARG);
        CHECK(object.accHitTest(0, 0, nullptr) == E_INVALIDARG);
        CHECK(object.accNavigate(77, self, &value) == E_INVALIDARG);
    }
}

TEST_CASE("twenty thousand calls with anything, while the host's handlers change what is asked about") {
    const ReadControl control(5);
    std::uint32_t seed = 7;
    const auto below = [&](std::uint32_t bound) {
        seed = seed * 1664525 + 1013904223;
        return static_cast<LONG>((seed >> 8) % bound);
    };
    std::vector<Node> kept = {control.Root()};
    control.InWindow->Events().During = [&](const std::string&, std::int16_t* index) {
        if (index) *index = static_cast<std::int16_t>(below(9) - 2);
        control.Tab->put_TabCount(static_cast<short>(1 + below(7)));
        if (below(2)) control.Tab->put_ActiveTab(static_cast<short>(below(8)));
    };
    for (int call = 0; call < 20'000; ++call) {
        const Node node = kept[static_cast<std::size_t>(below(static_cast<std::uint32_t>(kept.size())))];
        const VARIANT child = ChildId(below(14) - 2);
        VARIANT value = {};
        ComPtr<IDispatch> other;
        switch (below(8)) {
        case 0: node->accDoDefaultAction(child); break;
        case 1: node->accSelect(below(4), child); break;
        case 2: node->accNavigate(below(11), child, &value); break;
        case 3: node->accHitTest(below(500), below(300), &value); break;
        case 4: node->get_accState(child, &value); break;
        case 5: node->get_accChild(child, other.Put()); break;
        case 6: control.Tab->put_TabCount(static_cast<short>(below(8))); break;
        default: node.Name(); break;
        }
        if (const auto found = Node::From(node, value); found && kept.size() < 200) kept.push_back(*found);
        VariantClear(&value);
    }
    control.InWindow->Events().During = nullptr;
    control.Tab->put_TabCount(2);
    CHECK(control.Tree().find("(2 of 2)") != std::string::npos);
}

TEST_CASE("children are enumerated on from where a copy was taken") {
    const ReadControl control;
    const auto children = QueryFor<IEnumVARIANT>(control.Root().operator->());
    CHECK(children->Skip(2) == S_OK);
    ComPtr<IEnumVARIANT> copy;
    REQUIRE(children->Clone(copy.Put()) == S_OK);
    CHECK(children->Reset() == S_OK);
    const auto nameOfNext = [](IEnumVARIANT& from) {
        VARIANT item = {};
        if (from.Next(1, &item, nullptr) != S_OK) return std::wstring(L"none");
        const auto node = Node::From(Node(nullptr), item);
        VariantClear(&item);
        return node->Name();
    };
    CHECK(nameOfNext(*copy.Get()) == L"Tab2");
    CHECK(nameOfNext(*children.Get()) == L"Tab0");
    CHECK(copy->Skip(99) == S_FALSE);
    CHECK(nameOfNext(*copy.Get()) == L"none");
}

TEST_CASE("the members answer by name, too") {
    const ReadControl control;
    const auto root = QueryFor<IDispatch>(control.Root().operator->());
    DISPID id = 0;
    wchar_t name[] = L"accChildCount";
    LPOLESTR names = name;
    REQUIRE(root->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_NEUTRAL, &id) == S_OK);
    CHECK(id == DISPID_ACC_CHILDCOUNT);
    CHECK(Get(*root.Get(), L"accChildCount").Number() == 7);
}

TEST_CASE("a child's number is understood as callers by name give it: short, or a variable of theirs") {
    const ReadControl control;
    LONG number = 2;
    SHORT shortNumber = 2;
    VARIANT literal = {}, variable = {}, shortVariable = {}, script = {};
    literal.vt = VT_I2, literal.iVal = 2;
    variable.vt = VT_BYREF | VT_I4, variable.plVal = &number;
    shortVariable.vt = VT_BYREF | VT_I2, shortVariable.piVal = &shortNumber;
    script.vt = VT_BYREF | VT_VARIANT, script.pvarVal = &literal;
    for (const VARIANT& tab : {literal, variable, shortVariable, script}) {
        BSTR name = nullptr;
        REQUIRE(control.Root()->get_accName(tab, &name) == S_OK);
        CHECK(std::wstring(name) == L"Tab1");
        SysFreeString(name);
        control.Tab->put_ActiveTab(0);
        CHECK(control.Root()->accDoDefaultAction(tab) == S_OK);
        CHECK(control.Active() == 1);
    }
}

} // namespace vantik
