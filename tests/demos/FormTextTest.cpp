#include "demos/form/design/model/FormText.h"

#include <doctest/doctest.h>

using namespace vantik;

namespace {

const std::wstring Whole =
    LR"(VantikFrameTab form 1
Form
    Width = 10800
    Height = 7200
End
VantikFrameTab Tabs
    Left = 180
    Top = 150
    Width = 9000
    Height = 6000
    Properties
        TabCount = 3
        DefaultCaption = "x = Font"
        Font = Font
            Name = "Tahoma"
        End
        Picture = Object {0BE35204-8F91-11CE-9DE3-00AA004BB851}
            6C740000
        End
        SkinFile = "skin.ini"
    End
End
TextBox Text1
    Container = "Tabs"
    Left = -39160
    Top = 960
    Width = 1800
    Height = 360
    Text = "say \"Ada\""
End
List List1
    Container = "Tabs"
    Left = 840
    Top = 0
    Width = 1800
    Height = 900
    Text = ""
End
)";

// The text with its first occurrence of something replaced.
std::wstring With(std::wstring_view old, std::wstring_view replacement) {
    std::wstring text = Whole;
    const std::size_t at = text.find(old);
    REQUIRE(at != std::wstring::npos);
    return text.replace(at, old.size(), replacement);
}

std::string FaultOf(std::wstring_view text) {
    try {
        ReadForm(text);
    } catch (const FormTextError& error) {
        return error.what();
    }
    return "none";
}

} // namespace

TEST_CASE("A form is read") {
    const DesignedForm form = ReadForm(Whole);
    CHECK(form.Width == 10800);
    CHECK(form.Height == 7200);
    CHECK(form.ControlName == L"Tabs");
    CHECK(form.ControlPlace == Box{180, 150, 9000, 6000});
    CHECK(form.Properties.starts_with(L"TabCount = 3\nDefaultCaption = \"x = Font\"\nFont = Font\n    Name"));
    CHECK(form.Properties.ends_with(L"    6C740000\nEnd\nSkinFile = \"skin.ini\"\n"));
    CHECK(form.PropertiesLine == 12);
    REQUIRE(form.Children.size() == 2);
    CHECK(form.Children[0] == Child{ChildKind::TextBox, L"Text1", {-39160, 960, 1800, 360}, L"say \"Ada\""});
    CHECK(form.Children[1] == Child{ChildKind::List, L"List1", {840, 0, 1800, 900}, L""});
}

TEST_CASE("What was read is written as it was, to the letter") { CHECK(WriteForm(ReadForm(Whole)) == Whole); }

TEST_CASE("Line ends, blanks, empty lines and the mark of an encoding make no difference") {
    std::wstring loose = L"\xFEFF";
    for (const wchar_t character : Whole)
        loose += character == L'\n' ? L" \r\n\r\n" : std::wstring(1, character);
    const DesignedForm form = ReadForm(loose);
    CHECK(form.Children == ReadForm(Whole).Children);
    CHECK(form.PropertiesLine == 22);
    CHECK(form.Properties.starts_with(L"\nTabCount = 3\n\nDefaultCaption")); // lines keep their numbers
}

TEST_CASE("Anything else than a form is refused at its first line") {
    const std::string fault = "line 1: this is no form: it does not begin with 'VantikFrameTab form 1'";
    CHECK(FaultOf(L"") == fault);
    CHECK(FaultOf(L"MZ\x90\0\3") == fault);
    CHECK(FaultOf(L"VantikFrameTab form 2\nForm\n") == fault);
}

TEST_CASE("A damaged form is refused with the line and what is wrong there") {
    CHECK(FaultOf(With(L"Width = 10800", L"Width 10800")) == "line 3: there is no '=' in 'Width 10800'");
    CHECK(FaultOf(With(L"= 10800", L"= 108oo")) == "line 3: '108oo' is no whole number");
    CHECK(FaultOf(With(L"= 10800", L"= 99999999999")) == "line 3: '99999999999' is no whole number");
    CHECK(FaultOf(With(L"= 10800", L"= \x0131")) == "line 3: '?' is no whole number");
    CHECK(FaultOf(With(L"= 10800", L"= -5")) == "line 3: -5 is no length for a Width");
    CHECK(FaultOf(With(L"= 10800", L"= 600000")) == "line 3: 600000 is no length for a Width");
    CHECK(FaultOf(With(L"    Height = 7200\n", L"")) == "line 4: there is no Height");
    CHECK(FaultOf(With(L"    Height = 7200\n", L"    Width = 1\n")) == "line 4: 'Width' stands here twice");
    CHECK(FaultOf(With(L"Top = 150", L"Tip = 150")) == "line 8: 'Tip' is nothing that stands here");
    CHECK(FaultOf(With(L"TextBox Text1", L"Slider Text1")) == "line 23: nothing begins with 'Slider Text1'");
    CHECK(FaultOf(With(L"TextBox Text1", L"TextBox")) == "line 23: there is no name");
    CHECK(FaultOf(With(L"List List1", L"List tEXT1")) == "line 31: the name 'tEXT1' is used twice");
    CHECK(FaultOf(With(L"List List1", L"List tabs")) == "line 31: the name 'tabs' is used twice");
    CHECK(FaultOf(With(L"Container = \"Tabs\"", L"Container = \"Other\"")) ==
          "line 24: there is no such container");
    CHECK(FaultOf(With(L"\\\"Ada\\\"\"", L"Ada")) == "line 29: the text has no closing quotation mark");
    CHECK(FaultOf(With(L"\"say \\\"Ada\\\"\"", L"Ada")) == "line 29: the text is not in quotation marks");
}

TEST_CASE("A form that ends too early, or has a part twice, is refused") {
    CHECK(FaultOf(Whole.substr(0, Whole.rfind(L"End"))) == "line 37: the text ends before an End");
    CHECK(FaultOf(Whole.substr(0, Whole.find(L"        SkinFile"))) ==
          "line 19: the text ends before an End");
    CHECK(FaultOf(Whole.substr(0, Whole.find(L"VantikFrameTab Tabs"))) ==
          "line 5: the text has no VantikFrameTab");
    CHECK(FaultOf(L"VantikFrameTab form 1\n") == "line 1: the text has no Form");
    CHECK(FaultOf(Whole + L"Form\n") == "line 39: there is a second Form");
    CHECK(FaultOf(Whole + L"VantikFrameTab Two\n") == "line 39: there is a second VantikFrameTab");
    CHECK(FaultOf(With(L"    Properties\n", L"    Properties\n    End\n    Properties\n")) ==
          "line 13: there are Properties twice");
}

TEST_CASE("Only where a section ends the beginning of a form is one, too") {
    std::size_t taken = 0;
    for (std::size_t length = 0; length < Whole.size(); ++length)
        if (FaultOf(Whole.substr(0, length)) == "none") ++taken;
    CHECK(taken == 5); // behind the control, each of both children, with the end of the line and without
}
