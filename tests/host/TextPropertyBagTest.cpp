#include "host/TextPropertyBag.h"

#include <doctest/doctest.h>

#include "host/HostError.h"
#include "host/OleApartment.h"
#include "host/SavedObjects.h"

namespace vantik {

namespace {

void Write(TextPropertyBag& bag, const wchar_t* name, Variant value) {
    REQUIRE(bag.Write(name, const_cast<VARIANT*>(&value.Get())) == S_OK);
}

Variant Read(TextPropertyBag& bag, const wchar_t* name, VARTYPE type) {
    Variant value;
    value.Put()->vt = type;
    REQUIRE(bag.Read(name, value.Put(), nullptr) == S_OK);
    return value;
}

std::string FailureOf(const char* text) {
    TextPropertyBag bag;
    try {
        bag.Parse(text);
        return "none";
    } catch (const HostError& error) {
        return error.what();
    }
}

class CountingLog final : public ComObject<IErrorLog> {
public:
    int Count = 0;
    HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR, EXCEPINFO*) noexcept override {
        ++Count;
        return S_OK;
    }
};

} // namespace

TEST_CASE("A bag writes one property a line, in the order in which they came") {
    TextPropertyBag bag;
    Write(bag, L"TabCount", std::int16_t{5});
    Write(bag, L"CaptionColor0", std::int32_t{18});
    Write(bag, L"TabBorder", true);
    Write(bag, L"DefaultCaption", L"say \"\\\u9875\"\n");
    CHECK(bag.Text() ==
          "TabCount = 5\n"
          "CaptionColor0 = 18\n"
          "TabBorder = True\n"
          "DefaultCaption = \"say \\\"\\\\\xE9\xA1\xB5\\\"\\n\"\n");
}

TEST_CASE("What a bag wrote it reads again, in the type that is asked for") {
    TextPropertyBag bag;
    Write(bag, L"Number", std::int32_t{-12});
    Write(bag, L"Real", 8.25);
    Write(bag, L"Flag", false);
    Write(bag, L"Text", L"\\n is no line end; \"this\" is quoted\r\n");
    TextPropertyBag copy;
    copy.Parse(bag.Text());
    CHECK(Read(copy, L"number", VT_I2).Number() == -12); // names have no case
    CHECK(Read(copy, L"Real", VT_R8).Real() == 8.25);
    CHECK(Read(copy, L"Flag", VT_I2).Number() == 0);
    CHECK(Read(copy, L"Flag", VT_BOOL).Flag() == false);
    CHECK(Read(copy, L"Text", VT_BSTR).Text() == L"\\n is no line end; \"this\" is quoted\r\n");
    CHECK(copy.Text() == bag.Text());
}

TEST_CASE("A font is taken apart into a section and made again from it") {
    const OleApartment apartment;
    const SavedFont saved = {L"DejaVu Sans", 9.75, FW_BOLD, ANSI_CHARSET, true, false, true};
    TextPropertyBag bag;
    Write(bag, L"Font", MakeAgain(saved).Get());
    TextPropertyBag copy;
    copy.Parse(bag.Text());
    const auto font = QueryFor<IFont>(Read(copy, L"Font", VT_DISPATCH).Object().Get());
    REQUIRE(font);
    CHECK(TakeApart(*font.Get()) == TakeApart(*QueryFor<IFont>(MakeAgain(saved).Get()).Get()));
    CHECK(copy.Text() == bag.Text());
    CHECK(copy.Text().find("\n    Weight = 700\n") != std::string::npos);
}

TEST_CASE("Any other object is kept as what its stream held") {
    const OleApartment apartment;
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateBitmap(3, 2, 1, 1, "\xA0\0\x40\0");
    ComPtr<IDispatch> picture;
    REQUIRE(OleCreatePictureIndirect(&description, __uuidof(IDispatch), TRUE, picture.PutVoid()) == S_OK);
    TextPropertyBag bag;
    Write(bag, L"Picture", picture.Get());
    TextPropertyBag copy;
    copy.Parse(bag.Text());
    const auto loaded = QueryFor<IPicture>(Read(copy, L"Picture", VT_UNKNOWN).Object().Get());
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_XSIZE_HIMETRIC original = 0;
    REQUIRE(loaded);
    REQUIRE(loaded->get_Width(&width) == S_OK);
    REQUIRE(QueryFor<IPicture>(picture.Get())->get_Width(&original) == S_OK);
    CHECK(width == original);
    CHECK(copy.Text() == bag.Text());
}

TEST_CASE("No object leaves no line") {
    TextPropertyBag bag;
    Write(bag, L"Picture", static_cast<IDispatch*>(nullptr));
    CHECK(bag.Text().empty());
}

TEST_CASE("A property that is not there leaves the caller's value, one that does not convert is reported") {
    TextPropertyBag bag;
    bag.Parse("Name = \"many\"\n");
    const auto log = MakeCom<CountingLog>();
    Variant number(std::int16_t{7});
    CHECK(FAILED(bag.Read(L"Count", const_cast<VARIANT*>(&number.Get()), log.Get())));
    CHECK(log->Count == 0);
    CHECK(FAILED(bag.Read(L"Name", const_cast<VARIANT*>(&number.Get()), log.Get())));
    CHECK(log->Count == 1);
    CHECK(number.Number() == 7);
}

TEST_CASE("A text that is no bag is refused with the line, and the bag stays as it was") {
    CHECK(FailureOf("A = 1\nB\n") == "line 2: there is no '='");
    CHECK(FailureOf(" = 1") == "line 1: there is no name");
    CHECK(FailureOf("A = abc") == "line 1: 'abc' is no value");
    CHECK(FailureOf("A = \"abc") == "line 1: the text has no closing quotation mark");
    CHECK(FailureOf("A = \"a\"b") == "line 1: there is more behind the text");
    CHECK(FailureOf("A = Font\nName = \"x\"\n") == "line 2: the font has no End");
    CHECK(FailureOf("A = Font\nColour = 1\nEnd") == "line 2: a font has no 'Colour'");
    CHECK(FailureOf("A = Object x\nEnd") == "line 1: the class is no GUID");
    CHECK(FailureOf("A = Object {0BE35204-8F91-11CE-9DE3-00AA004BB851}\n0G\nEnd") ==
          "line 2: no hexadecimal digit");
    TextPropertyBag bag;
    bag.Parse("A = 1\n");
    CHECK_THROWS_AS(bag.Parse("B = 2\nC"), HostError);
    CHECK(bag.Text() == "A = 1\n");
}

} // namespace vantik
