#include "demos/form/design/model/Child.h"

#include <doctest/doctest.h>

using namespace vantik;

TEST_CASE("A new child gets the first free number of its kind") {
    std::vector<Child> children;
    CHECK(FreeName(ChildKind::Label, children) == L"Label1");
    children.push_back({ChildKind::Label, L"LABEL1", {}, {}});
    children.push_back({ChildKind::Label, L"Label3", {}, {}});
    CHECK(FreeName(ChildKind::Label, children) == L"Label2");
    CHECK(FreeName(ChildKind::TextBox, children) == L"Text1");
}

TEST_CASE("Each kind stands at its place in the table, and their words differ") {
    for (const KindTraits& traits : AllKinds) {
        CHECK(TraitsOf(traits.Kind).Keyword == traits.Keyword);
        for (const KindTraits& other : AllKinds)
            if (other.Kind != traits.Kind) CHECK_FALSE(SameName(other.Keyword, traits.Keyword));
    }
}

TEST_CASE("The lines of a list stand between semicolons") {
    CHECK(LinesOf(L"").empty());
    CHECK(LinesOf(L"one") == std::vector<std::wstring>{L"one"});
    CHECK(LinesOf(L"one;two; three") == std::vector<std::wstring>{L"one", L"two", L" three"});
    CHECK(LinesOf(L"one;;two;") == std::vector<std::wstring>{L"one", L"", L"two"});
}
