// What hosts are told of an error besides its number.
#include <doctest/doctest.h>

#include <filesystem>

#include "host/SkinBesideProgram.h"
#include "host/TextPropertyBag.h"
#include "host/ThreadErrorInfo.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

struct Told {
    HRESULT Result = S_OK;
    std::string Description;
};

// An early-bound caller asks for the text once it has the number.
Told Early(HRESULT result) { return {result, ToUtf8(ThreadErrorInfo::Take().Description)}; }

template <class Call>
Told Late(Call call) {
    try {
        call();
    } catch (const AutomationError& error) {
        return {error.Code(), ToUtf8(error.Description())};
    }
    return {};
}

constexpr HRESULT NumberResult(int number) { return HRESULT(0x800A0000 + unsigned(number)); }

class RecordingLog final : public ComObject<IErrorLog> {
public:
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* exception) noexcept override {
        Name = ToUtf8(name);
        Last = {exception->scode, exception->bstrDescription ? ToUtf8(exception->bstrDescription) : ""};
        ++Count;
        return S_OK;
    }
    int Count = 0;
    std::string Name;
    Told Last;
};

ComPtr<TextPropertyBag> BagOf(std::string_view text) {
    auto bag = MakeCom<TextPropertyBag>();
    bag->Parse(text);
    return bag;
}

// What loading the bag tells by way of the interface, and what by way of the loader's log.
struct Loading {
    Told Caller;
    ComPtr<RecordingLog> Log = MakeCom<RecordingLog>();

    Loading(const LooseControl& control, std::string_view bag) {
        const auto persist = control.As<IPersistPropertyBag>();
        Caller = Early(persist->Load(BagOf(bag).Get(), Log.Get()));
    }
};

struct SkinCase {
    const char* Definition;
    int Number;
    const char* File; // where the text begins
    const char* Rest;
};

constexpr SkinCase SkinCases[] = {
    {"Start\n[Tab]\n\n12: 1, 2,abc ,4 // fill\n", 13, "skin.ini", ", line 4: \"abc \" is not a number"},
    {"Start\n[Tab]\n26: 1,2,3,4\n", 9, "skin.ini", ", line 3: there is no rectangle 26, only 0 to 25"},
    {"Start\n[Tab]\nFile: Missing.bmp\n", 53, "MISSING.BMP", ": File not found"},
    {"Start\n[Tab]\nFile: skin.ini\n", 481, "SKIN.INI", ": Invalid picture"},
};

std::string TextOf(const SkinBesideProgram& skin, const SkinCase& error) {
    const bool isBitmap = std::string_view(error.File) != "skin.ini";
    return (isBitmap ? "The skin's bitmap " : "") + ToUtf8(skin.PathOf(FromUtf8(error.File))) + error.Rest;
}

std::string BagFor(const SkinBesideProgram& skin) {
    return "SkinPath = \"" + ToUtf8(skin.SkinPath()) + "\"\n";
}

} // namespace

TEST_CASE("An error of a skin that is assigned names file, line and text, early and late bound") {
    const SkinBesideProgram skin;
    LooseControl control;
    Put(control.Dispatch(), L"SkinPath", skin.SkinPath());
    for (const SkinCase& error : SkinCases) {
        skin.Write(L"skin.ini", error.Definition);
        const Told early = Early(control.Tab->put_SkinFile(Bstr(L"skin.ini").Get()));
        CHECK(early.Result == NumberResult(error.Number));
        CHECK(early.Description == TextOf(skin, error));
        const Told late = Late([&] { Put(control.Dispatch(), L"SkinFile", L"skin.ini"); });
        CHECK(late.Result == early.Result);
        CHECK(late.Description == early.Description);
    }
}

TEST_CASE("An error of a skin at a load reaches the loader and its log with the same text") {
    const SkinBesideProgram skin;
    LooseControl control;
    for (const SkinCase& error : SkinCases) {
        skin.Write(L"skin.ini", error.Definition);
        const Loading load(control, BagFor(skin));
        CHECK(load.Caller.Result == NumberResult(error.Number));
        CHECK(load.Caller.Description == TextOf(skin, error));
        CHECK(load.Log->Count == 1);
        CHECK(load.Log->Name == "SkinFile");
        CHECK(load.Log->Last.Result == load.Caller.Result);
        CHECK(load.Log->Last.Description == load.Caller.Description);
    }
}

TEST_CASE("A built-in skin that cannot be written says where, and what to do") {
    const std::wstring temp = ProgramFolder() + L"\\Temp";
    LooseControl control;
    REQUIRE(Loading(control, "").Caller.Result == S_OK); // makes the folder
    // Written since, for all that the control can know.
    const std::filesystem::path icon = temp + L"\\sun.png";
    std::filesystem::last_write_time(icon, std::filesystem::file_time_type::clock::now());
    const HANDLE held = CreateFileW(icon.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    REQUIRE(held != INVALID_HANDLE_VALUE);
    const Loading load(control, "");
    CloseHandle(held);
    CHECK(load.Caller.Result == NumberResult(70));
    CHECK(load.Caller.Description ==
          ToUtf8(ProgramFolder()) +
              "\\Skin\\skin.ini is missing, and the built-in skin cannot be written to " + ToUtf8(temp) +
              "\\sun.png: Permission denied. Ship a skin with the application, or let it write there");
}

TEST_CASE("Values that were read but are of no use are in the log under their names") {
    LooseControl control;
    const Loading count(control, "TabCount = -5\n");
    CHECK(count.Caller.Result == NumberResult(9));
    CHECK(count.Caller.Description == "The saved TabCount is -5");
    CHECK(count.Log->Name == "TabCount");
    CHECK(count.Log->Last.Description == count.Caller.Description);
    const Loading width(control, "TabCount = 2\nBarWidth = 0\n");
    CHECK(width.Caller.Result == NumberResult(11));
    CHECK(width.Caller.Description.starts_with("No layout for BarWidth = 0, TabCount = 2 on "));
    CHECK(width.Log->Name == "BarWidth");
    CHECK(width.Log->Last.Description == width.Caller.Description);
}

TEST_CASE("A saved value that cannot be read is named to the loader, too") {
    LooseControl control;
    const Loading load(control, "BarWidth = \"wide\"\n");
    CHECK(load.Caller.Result == DISP_E_TYPEMISMATCH);
    CHECK(load.Caller.Description == "The saved BarWidth cannot be read: Type mismatch");
    CHECK(load.Log->Name == "BarWidth");
    CHECK(load.Log->Last.Description == load.Caller.Description);
}

TEST_CASE("A damaged stream is said to be one") {
    LooseControl control;
    ComPtr<IStream> stream;
    REQUIRE(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()) == S_OK);
    const Told told = Early(control.As<IPersistStreamInit>()->Load(stream.Get()));
    CHECK(told.Result == STG_E_DOCFILECORRUPT);
    CHECK(told.Description == "The saved data are damaged, or none of this control's");
}

TEST_CASE("The error of an index names it, early and late bound") {
    LooseControl control; // without tabs
    VARIANT_BOOL handled = VARIANT_FALSE;
    long result = 0, window = 0, message = WM_MOUSEWHEEL, wParam = 120 << 16, lParam = 0;
    const Told early = Early(
        control.Tab->zSubclass_Proc(VARIANT_TRUE, &handled, &result, &window, &message, &wParam, &lParam));
    CHECK(early.Result == NumberResult(9));
    CHECK(early.Description == "There is no tab -1: there are none");
    const Told late = Late([&] {
        Call(control.Dispatch(), L"zSubclass_Proc",
             {true, false, std::int32_t{0}, std::int32_t{0}, std::int32_t{WM_MOUSEWHEEL},
              std::int32_t{120 << 16}, std::int32_t{0}});
    });
    CHECK(late.Result == early.Result);
    CHECK(late.Description == early.Description);
}

TEST_CASE("An error of the layout reaches a host that gives the control its size") {
    LooseControl control;
    control.Tab->put_TabCount(2);
    control.Tab->put_BarWidth(0);
    SIZEL size = {5000, 5000};
    const Told told = Early(control.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size));
    CHECK(told.Result == NumberResult(11));
    CHECK(told.Description ==
          "No layout for BarWidth = 0, TabCount = 2 on 189 x 189 pixels: Division by zero");
}

TEST_CASE("A result that is no run-time error has the system's text, not another error's") {
    LooseControl control;
    control.Tab->put_TabCount(2);
    control.Tab->put_BarWidth(0); // its text is left behind
    const Told told = Early(control.Tab->get_TabCount(nullptr));
    CHECK(told.Result == E_POINTER);
    CHECK(!told.Description.empty());
    CHECK(told.Description.find("layout") == std::string::npos);
    CHECK(told.Description != "Internal error");
}

} // namespace vantik
