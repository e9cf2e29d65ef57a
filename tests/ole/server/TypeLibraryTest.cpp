// What a designer or a compiler reads of the control.
#include <doctest/doctest.h>

#include <algorithm>

#include "ole/LooseControl.h"

namespace vantik {

namespace {

struct MemberText {
    MEMBERID Id;
    INVOKEKIND Kind;
    std::wstring Name, Help;
    SHORT Parameters;
};

std::vector<MemberText> MembersOf(ITypeInfo& info) {
    std::vector<MemberText> members;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(info.GetFuncDesc(i, &function)); ++i) {
        Bstr name(L""), help(L"");
        info.GetDocumentation(function->memid, name.Put(), help.Put(), nullptr, nullptr);
        if (!(function->wFuncFlags & FUNCFLAG_FRESTRICTED))
            members.push_back(
                {function->memid, function->invkind, name.Text(), help.Text(), function->cParams});
        info.ReleaseFuncDesc(function);
    }
    return members;
}

ComPtr<ITypeInfo> Described(LooseControl& control) {
    ComPtr<ITypeInfo> info;
    REQUIRE(control.Dispatch().GetTypeInfo(0, 0, info.Put()) == S_OK);
    return info;
}

ComPtr<ITypeLib> LibraryOf(ITypeInfo& info) {
    ComPtr<ITypeLib> library;
    UINT index = 0;
    REQUIRE(info.GetContainingTypeLib(library.Put(), &index) == S_OK);
    return library;
}

ComPtr<ITypeInfo> Find(ITypeLib& library, REFGUID guid) {
    ComPtr<ITypeInfo> info;
    REQUIRE(library.GetTypeInfoOfGuid(guid, info.Put()) == S_OK);
    return info;
}

const std::vector<std::wstring> NamesInOrder = {
    L"TabCount",       L"ActiveTab",     L"InsertTab",      L"RemoveTab",     L"SetBarIco",
    L"SetBarCaption",  L"SetBarEnable",  L"GetTabCaption",  L"GetTabEnable",  L"GetTabIco",
    L"Picture",        L"TabBarPos",     L"TabPos",         L"BarWidth",      L"TabBarPosXJust",
    L"TabBarPosYJust", L"TabOffSet",     L"DefaultCaption", L"Font",          L"CaptionPos",
    L"CaptionColor0",  L"CaptionColor1", L"CaptionXjust",   L"CaptionYjust",  L"IcoXjust",
    L"IcoYjust",       L"DelButton",     L"DelBtnXJust",    L"DelBtnYJust",   L"NavBtnYjust",
    L"NavBtnXjust",    L"FixOcxList",    L"TabToTab",       L"TabBorder",     L"FrameDist",
    L"SkinFile",       L"SkinPath",      L"About",          L"zSubclass_Proc"};

} // namespace

TEST_CASE("The library and the class carry the names that programs were written for") {
    LooseControl control;
    const auto info = Described(control);
    const auto library = LibraryOf(*info.Get());
    Bstr name(L"");
    library->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr);
    CHECK(name.Text() == L"VantikFrameTabProject");
    Bstr interfaceName(L"");
    info->GetDocumentation(MEMBERID_NIL, interfaceName.Put(), nullptr, nullptr, nullptr);
    CHECK(interfaceName.Text() == L"_VantikFrameTab");
}

TEST_CASE("The members stand in interface order, and there are no others") {
    LooseControl control;
    std::vector<std::wstring> names;
    for (const auto& member : MembersOf(*Described(control).Get()))
        if (names.empty() || names.back() != member.Name) names.push_back(member.Name);
    CHECK(names == NamesInOrder);
}

TEST_CASE("Every member has a help text, the same for reading and writing a property") {
    LooseControl control;
    const auto members = MembersOf(*Described(control).Get());
    for (const auto& member : members) {
        CHECK(!member.Help.empty());
        for (const auto& other : members)
            if (other.Id == member.Id) CHECK(other.Help == member.Help);
    }
}

TEST_CASE("The help texts of properties say what they were written to say") {
    const std::vector<std::pair<std::wstring, std::wstring>> expected = {
        {L"Picture", L"picture shown in the control"},
        {L"TabBarPos", L"placement of the whole row of bars"},
        {L"TabPos", L"side of the control that carries the bars"},
        {L"BarWidth", L"width of each bar in pixels, its border included"},
        {L"TabBarPosXJust", L"shift of all bars along X"},
        {L"TabBarPosYJust", L"shift of all bars along Y"},
        {L"Font", L"caption font"},
        {L"CaptionPos", L"alignment of the caption on each bar"},
        {L"CaptionColor0", L"Default TabBar Caption Color"},
        {L"CaptionColor1", L"Active TabBar Caption Color"},
        {L"CaptionXjust", L"caption shift along X, positive or negative"},
        {L"CaptionYjust", L"caption shift along Y, positive or negative"},
        {L"IcoXjust", L"bar icon shift along X"},
        {L"IcoYjust", L"bar icon shift along Y"},
        {L"DelButton", L"whether each bar shows a close button"},
        {L"DelBtnXJust", L"close button shift along X, positive or negative"},
        {L"DelBtnYJust", L"close button shift along Y, positive or negative"},
        {L"NavBtnYjust", L"navigation button icon shift along Y"},
        {L"NavBtnXjust", L"navigation button icon shift along X"},
        {L"FixOcxList", L"names of children shown on every tab, separated by half-width commas"},
        {L"TabToTab", L"gap between neighbouring bars"},
        {L"TabBorder", L"whether every bar has both a left and a right edge"},
        {L"SkinFile", L"location of the skin definition file, relative"},
        {L"SkinPath", L"folder of the skin, relative to the control"},
        {L"About", L"About Vantik"}};
    LooseControl control;
    const auto members = MembersOf(*Described(control).Get());
    for (const auto& [name, help] : expected) {
        const auto found =
            std::find_if(members.begin(), members.end(), [&](auto& member) { return member.Name == name; });
        REQUIRE(found != members.end());
        CHECK(found->Help == help);
    }
}

TEST_CASE("The library, each of its types and each event have help texts") {
    LooseControl control;
    const auto library = LibraryOf(*Described(control).Get());
    for (int index = -1; index < static_cast<int>(library->GetTypeInfoCount()); ++index) {
        CAPTURE(index); // -1: the library itself
        Bstr help(L"");
        REQUIRE(library->GetDocumentation(index, nullptr, help.Put(), nullptr, nullptr) == S_OK);
        CHECK(!help.Text().empty());
    }
    CHECK(library->GetTypeInfoCount() == 6);
    for (const auto& event : MembersOf(*Find(*library.Get(), DIID___VantikFrameTab).Get()))
        CHECK(!event.Help.empty());
}

TEST_CASE("Properties are read and written, objects by reference too; About is the designers' about box") {
    LooseControl control;
    const auto members = MembersOf(*Described(control).Get());
    const auto has = [&](const wchar_t* name, INVOKEKIND kind) {
        return std::any_of(members.begin(), members.end(), [&](const MemberText& member) {
            return member.Name == name && member.Kind == kind;
        });
    };
    for (const auto& name : NamesInOrder) {
        const bool isMethod = has(name.c_str(), INVOKE_FUNC);
        CHECK(has(name.c_str(), INVOKE_PROPERTYGET) == !isMethod);
        CHECK(has(name.c_str(), INVOKE_PROPERTYPUT) == !isMethod);
        CHECK(has(name.c_str(), INVOKE_PROPERTYPUTREF) == (name == L"Font" || name == L"Picture"));
    }
    CHECK(*FindMember(control.Dispatch(), L"About") == DISPID_ABOUTBOX);
}

// A library's texts are bytes of the machine's code page.
TEST_SUITE("chinese") {
    TEST_CASE("Chinese help texts come out on a machine whose code page has Chinese") {
        REQUIRE(GetACP() == 936);
        LooseControl control;
        for (const auto& member : MembersOf(*Described(control).Get())) {
            if (member.Name == L"TabCount") CHECK(member.Help == L"TabBar的数量,从1开始计数");
            if (member.Name == L"ActiveTab") CHECK(member.Help == L"当前活动Tab,从0开始");
            if (member.Name == L"TabOffSet") CHECK(member.Help.ends_with(L"一般应大于10000"));
            if (member.Name == L"DefaultCaption")
                CHECK(member.Help == L"New Tab's Caption, 由控件自建,可通过程序修改");
            if (member.Name == L"FrameDist") CHECK(member.Help == L"控件边距");
            if (member.Name == L"About") CHECK(member.Help == L"About Vantik");
        }
    }
}

TEST_CASE("The events have the numbers 1 to 6 and 16-bit arguments by reference") {
    LooseControl control;
    const auto events = Find(*LibraryOf(*Described(control).Get()).Get(), DIID___VantikFrameTab);
    const auto members = MembersOf(*events.Get());
    const std::vector<std::pair<std::wstring, SHORT>> expected = {{L"DownBarDown", 0}, {L"PreTabDown", 1},
                                                                  {L"NextTabDown", 1}, {L"TabMove", 1},
                                                                  {L"TabDown", 2},     {L"TabClose", 1}};
    REQUIRE(members.size() == expected.size());
    for (std::size_t i = 0; i < members.size(); ++i) {
        CHECK(members[i].Id == static_cast<MEMBERID>(i + 1));
        CHECK(members[i].Name == expected[i].first);
        CHECK(members[i].Parameters == expected[i].second);
        FUNCDESC* function = nullptr;
        REQUIRE(events->GetFuncDesc(static_cast<UINT>(i), &function) == S_OK);
        for (SHORT p = 0; p < function->cParams; ++p) {
            CHECK(function->lprgelemdescParam[p].tdesc.vt == VT_PTR);
            CHECK(function->lprgelemdescParam[p].tdesc.lptdesc->vt == VT_I2);
        }
        events->ReleaseFuncDesc(function);
    }
}

TEST_CASE("The enumerations have their members and values") {
    LooseControl control;
    std::vector<std::pair<std::wstring, int>> constants;
    for (const auto& constant : control.Module().Constants())
        constants.emplace_back(constant.Name, constant.Value);
    const std::vector<std::pair<std::wstring, int>> expected = {
        {L"AlignLeft", 0},   {L"AlignMiddle", 1}, {L"AlignRight", 2},  {L"TabLeft", 0},
        {L"TabMiddle", 1},   {L"TabRight", 2},    {L"TabCustom", 3},   {L"WindowLeft", 0},
        {L"WindowRight", 1}, {L"Windowtop", 2},   {L"WindowBottom", 3}};
    CHECK(constants == expected);
}

TEST_CASE("The class is a control with a default interface and default events") {
    LooseControl control;
    ComPtr<ITypeInfo> info;
    REQUIRE(control.As<IProvideClassInfo>()->GetClassInfo(info.Put()) == S_OK);
    TYPEATTR* attributes = nullptr;
    REQUIRE(info->GetTypeAttr(&attributes) == S_OK);
    CHECK(attributes->guid == CLSID_VantikFrameTab);
    CHECK((attributes->wTypeFlags & TYPEFLAG_FCONTROL) != 0);
    CHECK(attributes->cImplTypes == 2);
    info->ReleaseTypeAttr(attributes);
    GUID events = GUID_NULL;
    CHECK(control.As<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events) == S_OK);
    CHECK(events == DIID___VantikFrameTab);
    CHECK(control.As<IProvideClassInfo2>()->GetGUID(99, &events) == E_INVALIDARG);
}

} // namespace vantik
