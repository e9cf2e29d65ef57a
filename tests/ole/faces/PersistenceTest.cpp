// Saving and loading by every route that a host may take.
#include <doctest/doctest.h>

#include <algorithm>
#include <functional>
#include <limits>

#include "host/TextPropertyBag.h"
#include "ole/Canvas.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

ComPtr<IStream> NewStream() {
    ComPtr<IStream> stream;
    REQUIRE(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()) == S_OK);
    return stream;
}

ComPtr<IStorage> NewStorage() {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    REQUIRE(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Put()) == S_OK);
    REQUIRE(StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                         storage.Put()) == S_OK);
    return storage;
}

void Rewind(IStream& stream) { stream.Seek({}, STREAM_SEEK_SET, nullptr); }

std::vector<std::byte> BytesOf(IStream& stream) {
    STATSTG state = {};
    stream.Stat(&state, STATFLAG_NONAME);
    std::vector<std::byte> bytes(static_cast<std::size_t>(state.cbSize.QuadPart));
    Rewind(stream);
    stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return bytes;
}

ComPtr<IStream> StreamOf(const std::vector<std::byte>& bytes) {
    auto stream = NewStream();
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    Rewind(*stream.Get());
    return stream;
}

// As the control saves into one.
ComPtr<IStorage> StorageOf(const std::vector<std::byte>& bytes) {
    auto storage = NewStorage();
    ComPtr<IStream> inside;
    REQUIRE(storage->CreateStream(L"VantikFrameTab", STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                  inside.Put()) == S_OK);
    inside->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return storage;
}

// Every property away from its default, pictures and fonts included.
void Change(LooseControl& control) {
    IDispatch& tab = control.Dispatch();
    for (const wchar_t* name : {L"TabBarPos", L"TabPos", L"CaptionPos"}) Put(tab, name, std::int32_t{1});
    for (const wchar_t* name :
         {L"TabBarPosXJust", L"TabBarPosYJust", L"CaptionXjust", L"CaptionYjust", L"IcoXjust", L"IcoYjust",
          L"DelBtnXJust", L"DelBtnYJust", L"NavBtnYjust", L"NavBtnXjust", L"TabToTab", L"FrameDist"})
        Put(tab, name, std::int16_t{-3});
    Put(tab, L"BarWidth", std::int16_t{64});
    Put(tab, L"TabOffSet", std::int32_t{54321});
    Put(tab, L"DefaultCaption", L"页 \"quoted\"");
    Put(tab, L"CaptionColor0", std::int32_t(0x80000012));
    Put(tab, L"CaptionColor1", std::int32_t{0xFF8000});
    Put(tab, L"DelButton", false);
    Put(tab, L"TabBorder", true);
    Put(tab, L"FixOcxList", L"btnOk, lblTitle");
    Put(tab, L"TabCount", std::int16_t{4});
    Put(tab, L"ActiveTab", std::int16_t{2});
    const auto font = QueryFor<IFont>(Get(tab, L"Font").Object().Get());
    ComPtr<IFont> other;
    REQUIRE(font->Clone(other.Put()) == S_OK);
    other->put_Name(Bstr(L"DejaVu Sans").Get());
    CY size = {};
    size.int64 = 140000;
    other->put_Size(size);
    other->put_Bold(TRUE);
    PutReference(tab, L"Font", other.As<IDispatch>().Get());

    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateBitmap(8, 5, 1, 1, nullptr);
    ComPtr<IDispatch> picture;
    REQUIRE(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE, picture.PutVoid()) == S_OK);
    PutReference(tab, L"Picture", picture.Get());
}

std::wstring FontText(IDispatch& tab) {
    const auto font = QueryFor<IFont>(Get(tab, L"Font").Object().Get());
    Bstr name(L"");
    CY size = {};
    BOOL bold = FALSE;
    font->get_Name(name.Put());
    font->get_Size(&size);
    font->get_Bold(&bold);
    return name.Text() + L" " + std::to_wstring(size.int64 / 10000) + (bold ? L" bold" : L"");
}

std::wstring PictureText(IDispatch& tab) {
    const auto picture = QueryFor<IPicture>(Get(tab, L"Picture").Object().Get());
    if (!picture) return L"none";
    short type = -1;
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    picture->get_Type(&type);
    picture->get_Width(&width);
    picture->get_Height(&height);
    return type <= 0
               ? L"none"
               : std::to_wstring(type) + L": " + std::to_wstring(width) + L"x" + std::to_wstring(height);
}

// All that is saved, as one text.
std::string StateOf(LooseControl& control) {
    std::wstring state;
    for (const wchar_t* name :
         {L"TabCount",       L"ActiveTab",      L"TabBarPos",    L"TabPos",         L"BarWidth",
          L"TabBarPosXJust", L"TabBarPosYJust", L"TabOffSet",    L"DefaultCaption", L"CaptionPos",
          L"CaptionColor0",  L"CaptionColor1",  L"CaptionXjust", L"CaptionYjust",   L"IcoXjust",
          L"IcoYjust",       L"DelButton",      L"DelBtnXJust",  L"DelBtnYJust",    L"NavBtnYjust",
          L"NavBtnXjust",    L"FixOcxList",     L"TabToTab",     L"TabBorder",      L"FrameDist",
          L"SkinFile",       L"SkinPath"})
        state += std::wstring(name) + L"=" + Get(control.Dispatch(), name).Text() + L"\n";
    return ToUtf8(state + FontText(control.Dispatch()) + L"\n" + PictureText(control.Dispatch()));
}

} // namespace

TEST_CASE("The same state comes back by bag, stream and storage") {
    LooseControl saved;
    saved.As<IPersistPropertyBag>()->Load(MakeCom<TextPropertyBag>().Get(),
                                          nullptr); // finds its skin's folder
    Change(saved);
    const std::string state = StateOf(saved);
    REQUIRE(state.find("DejaVu Sans 14 bold") != std::string::npos);
    REQUIRE(state.find("1: ") != std::string::npos);
    LooseControl loaded;
    SUBCASE("property bag") {
        for (const BOOL all : {FALSE, TRUE}) {
            const auto bag = MakeCom<TextPropertyBag>();
            REQUIRE(saved.As<IPersistPropertyBag>()->Save(bag.Get(), TRUE, all) == S_OK);
            REQUIRE(loaded.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr) == S_OK);
        }
    }
    SUBCASE("stream") {
        const auto stream = NewStream();
        REQUIRE(saved.As<IPersistStreamInit>()->Save(stream.Get(), TRUE) == S_OK);
        Rewind(*stream.Get());
        REQUIRE(loaded.As<IPersistStreamInit>()->Load(stream.Get()) == S_OK);
    }
    SUBCASE("storage") {
        const auto storage = NewStorage();
        REQUIRE(saved.As<IPersistStorage>()->Save(storage.Get(), TRUE) == S_OK);
        REQUIRE(saved.As<IPersistStorage>()->SaveCompleted(nullptr) == S_OK);
        REQUIRE(loaded.As<IPersistStorage>()->Load(storage.Get()) == S_OK);
    }
    CHECK(StateOf(loaded) == state);
    CHECK(loaded.As<IPersistStreamInit>()->IsDirty() == S_FALSE);
    CHECK(saved.As<IPersistStreamInit>()->IsDirty() == S_FALSE);
}

TEST_CASE("A control as it was born saves nothing to a bag") {
    LooseControl control;
    control.As<IPersistPropertyBag>()->InitNew();
    const auto bag = MakeCom<TextPropertyBag>();
    CHECK(control.As<IPersistPropertyBag>()->Save(bag.Get(), TRUE, FALSE) == S_OK);
    CHECK(bag->Text().empty());
}

TEST_CASE("Whether a control has to be saved is told truthfully") {
    LooseControl control;
    const auto stream = control.As<IPersistStreamInit>();
    REQUIRE(stream->InitNew() == S_OK);
    CHECK(stream->IsDirty() == S_FALSE);
    Put(control.Dispatch(), L"FrameDist", std::int16_t{0}); // assigned is changed
    CHECK(stream->IsDirty() == S_OK);
    CHECK(control.As<IPersistStorage>()->IsDirty() == S_OK);
    const auto copy = NewStream();
    REQUIRE(stream->Save(copy.Get(), FALSE) == S_OK);
    CHECK(stream->IsDirty() == S_OK);
    REQUIRE(stream->Save(copy.Get(), TRUE) == S_OK);
    CHECK(stream->IsDirty() == S_FALSE);
    Call(control.Dispatch(), L"GetTabCaption", {std::int16_t{0}});
    CHECK(stream->IsDirty() == S_FALSE);
    Put(control.Dispatch(), L"TabCount", std::int16_t{2});
    CHECK(stream->IsDirty() == S_OK);
}

TEST_CASE("A copy in another storage saves nothing, moving to that storage does; its watchers hear of both") {
    class SaveSink final : public ComObject<IAdviseSink> {
    public:
        void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
        void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) noexcept override {}
        void STDMETHODCALLTYPE OnRename(IMoniker*) noexcept override {}
        void STDMETHODCALLTYPE OnSave() noexcept override { ++Saves; }
        void STDMETHODCALLTYPE OnClose() noexcept override {}
        int Saves = 0;
    };
    LooseControl control;
    const auto sink = MakeCom<SaveSink>();
    DWORD advice = 0;
    REQUIRE(control.As<IOleObject>()->Advise(sink.Get(), &advice) == S_OK);
    const auto persist = control.As<IPersistStorage>();
    const auto storage = NewStorage();
    CHECK(persist->SaveCompleted(storage.Get()) == S_OK); // of no saving
    CHECK(sink->Saves == 0);
    Put(control.Dispatch(), L"BarWidth", std::int16_t{33});
    REQUIRE(persist->Save(storage.Get(), FALSE) == S_OK);
    CHECK(persist->SaveCompleted(nullptr) == S_OK);
    CHECK(persist->IsDirty() == S_OK);
    CHECK(sink->Saves == 1);
    REQUIRE(persist->Save(storage.Get(), FALSE) == S_OK);
    CHECK(persist->HandsOffStorage() == S_OK);
    CHECK(persist->SaveCompleted(storage.Get()) == S_OK);
    CHECK(persist->IsDirty() == S_FALSE);
    CHECK(sink->Saves == 2);
    CHECK(control.As<IOleObject>()->Unadvise(advice) == S_OK);
}

TEST_CASE("A font that was changed in place has to be saved, too") {
    LooseControl control;
    const auto stream = control.As<IPersistStreamInit>();
    REQUIRE(stream->InitNew() == S_OK);
    const auto font = QueryFor<IFont>(Get(control.Dispatch(), L"Font").Object().Get());
    CHECK(stream->IsDirty() == S_FALSE);
    CY size = {};
    size.int64 = 200000;
    REQUIRE(font->put_Size(size) == S_OK);
    CHECK(stream->IsDirty() == S_OK);
    const auto saved = NewStream();
    REQUIRE(stream->Save(saved.Get(), TRUE) == S_OK);
    CHECK(stream->IsDirty() == S_FALSE);
    Rewind(*saved.Get());
    REQUIRE(stream->Load(saved.Get()) == S_OK);
    CHECK(stream->IsDirty() == S_FALSE);
    CHECK(FontText(control.Dispatch()).find(L" 20") != std::wstring::npos);
}

TEST_CASE("The size that a stream will have is exact") {
    LooseControl control;
    Change(control);
    ULARGE_INTEGER size = {};
    REQUIRE(control.As<IPersistStreamInit>()->GetSizeMax(&size) == S_OK);
    const auto stream = NewStream();
    REQUIRE(control.As<IPersistStreamInit>()->Save(stream.Get(), TRUE) == S_OK);
    CHECK(BytesOf(*stream.Get()).size() == size.QuadPart);
}

TEST_CASE("Reading stops right behind the control's own bytes") {
    LooseControl control;
    Change(control);
    const auto stream = NewStream();
    control.As<IPersistStreamInit>()->Save(stream.Get(), TRUE);
    const ULONG mark = 0x12345678;
    stream->Write(&mark, sizeof mark, nullptr);
    Rewind(*stream.Get());
    REQUIRE(control.As<IPersistStreamInit>()->Load(stream.Get()) == S_OK);
    ULONG found = 0;
    stream->Read(&found, sizeof found, nullptr);
    CHECK(found == mark);
}

TEST_CASE("A stream that was cut short or is none of the control's leaves it as it was") {
    LooseControl saved;
    Change(saved);
    const auto stream = NewStream();
    saved.As<IPersistStreamInit>()->Save(stream.Get(), TRUE);
    const auto whole = BytesOf(*stream.Get());
    LooseControl control;
    Put(control.Dispatch(), L"FrameDist", std::int16_t{9});
    const std::string before = StateOf(control);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        CAPTURE(size);
        const std::vector<std::byte> part(whole.begin(), whole.begin() + long(size));
        CHECK(FAILED(control.As<IPersistStreamInit>()->Load(StreamOf(part).Get())));
        CHECK(FAILED(control.As<IPersistStorage>()->Load(StorageOf(part).Get())));
        if (size % 16 == 0) CHECK(StateOf(control) == before);
    }
    CHECK(StateOf(control) == before);
    auto foreign = whole;
    foreign[0] = std::byte{0};
    CHECK(FAILED(control.As<IPersistStreamInit>()->Load(StreamOf(foreign).Get())));
    CHECK(StateOf(control) == before);
}

namespace {

// Where the bitmap file of the saved picture begins.
std::size_t BitmapIn(const std::vector<std::byte>& bytes) {
    constexpr std::byte magic[] = {std::byte{'B'}, std::byte{'M'}};
    const auto at = std::search(bytes.begin(), bytes.end(), std::begin(magic), std::end(magic));
    REQUIRE(at != bytes.end());
    return static_cast<std::size_t>(at - bytes.begin());
}

} // namespace

// The platform's own reader of saved pictures takes sizes and offsets as they stand and reads, or writes, there.
TEST_CASE("A saved picture whose header is damaged anywhere is refused or read, and the control lives on") {
    LooseControl saved;
    Change(saved);
    const auto stream = NewStream();
    saved.As<IPersistStreamInit>()->Save(stream.Get(), TRUE);
    const auto whole = BytesOf(*stream.Get());
    const std::size_t bitmap = BitmapIn(whole);
    constexpr std::size_t lengthBefore = 8, headers = 14 + 40, colours = 8;
    int refused = 0;
    for (std::size_t at = bitmap - lengthBefore; at < bitmap + headers + colours; ++at)
        for (const int value : {0x00, 0x01, 0x0C, 0x7F, 0x80, 0xFF}) {
            auto bytes = whole;
            bytes[at] = std::byte(value);
            LooseControl control;
            const HRESULT loaded = control.As<IPersistStreamInit>()->Load(StreamOf(bytes).Get());
            CHECK((loaded == S_OK || loaded == STG_E_DOCFILECORRUPT));
            refused += loaded != S_OK;
        }
    CHECK(refused > 100); // the rest says the same, or nothing that is of use
}

TEST_CASE("A saved picture says that it is none, or is damaged where it is cut short") {
    LooseControl saved;
    Change(saved);
    const auto stream = NewStream();
    saved.As<IPersistStreamInit>()->Save(stream.Get(), TRUE);
    const auto whole = BytesOf(*stream.Get());
    const std::size_t length = BitmapIn(whole) - 4;
    const auto withLength = [&](std::uint8_t value) {
        auto bytes = whole;
        bytes[length] = std::byte{value};
        return bytes;
    };
    LooseControl none, cut;
    CHECK(none.As<IPersistStreamInit>()->Load(StreamOf(withLength(0)).Get()) == S_OK);
    CHECK(PictureText(none.Dispatch()) == L"none");
    const auto one = static_cast<std::uint8_t>(std::to_integer<int>(whole[length]) - 1);
    CHECK(cut.As<IPersistStreamInit>()->Load(StreamOf(withLength(one)).Get()) == STG_E_DOCFILECORRUPT);
    CHECK(PictureText(cut.Dispatch()) == L"none");
}

TEST_CASE("No bytes of a stream can bring the control down") {
    LooseControl saved;
    Change(saved);
    const auto stream = NewStream();
    saved.As<IPersistStreamInit>()->Save(stream.Get(), TRUE);
    const auto whole = BytesOf(*stream.Get());
    const Canvas canvas(300, 200);
    unsigned seed = 4711;
    for (int round = 0; round < 300; ++round) {
        auto bytes = whole;
        for (int changes = 0; changes < 3; ++changes) {
            seed = seed * 1103515245 + 12345;
            bytes[(seed >> 8) % bytes.size()] = std::byte(seed >> 24);
        }
        LooseControl control;
        control.As<IPersistStreamInit>()->Load(StreamOf(bytes).Get());
        short count = 0;
        CHECK(control.Tab->get_TabCount(&count) == S_OK);
        Draw(control.Object(), canvas.DC(),
             {0, 0, 300, 200}); // a font that is none is found out when it is used
    }
}

namespace {

// A control's saved bytes, written record by record.
class SavedBytes {
public:
    void Add(std::u16string_view key, std::uint16_t type, const std::vector<std::uint16_t>& value) {
        Number(records_, static_cast<std::uint16_t>(key.size()));
        for (const char16_t letter : key) Number(records_, letter);
        Number(records_, type);
        Number(records_, static_cast<std::uint32_t>(value.size() * 2));
        for (const auto word : value) Number(records_, word);
    }
    ComPtr<IStream> Stream(std::uint16_t version = 1) const {
        std::vector<std::byte> bytes;
        Number(bytes, std::uint32_t{0x54465456});
        Number(bytes, version);
        Number(bytes, std::uint16_t{0});
        Number(bytes, static_cast<std::uint32_t>(records_.size()));
        bytes.insert(bytes.end(), records_.begin(), records_.end());
        return StreamOf(bytes);
    }

private:
    template <class Value>
    static void Number(std::vector<std::byte>& bytes, Value value) {
        const auto* raw = reinterpret_cast<const std::byte*>(&value);
        bytes.insert(bytes.end(), raw, raw + sizeof value);
    }

    std::vector<std::byte> records_;
};

} // namespace

TEST_CASE("A newer version's unknown properties are passed over, missing ones have their defaults") {
    LooseControl control;
    SavedBytes saved;
    saved.Add(u"Glow", 4711, {1, 2, 3});
    saved.Add(u"BarWidth", VT_I2, {99});
    CHECK(control.As<IPersistStreamInit>()->Load(saved.Stream(2).Get()) == S_OK); // a version to come
    CHECK(Get(control.Dispatch(), L"BarWidth").Number() == 99);
    CHECK(Get(control.Dispatch(), L"DefaultCaption").Text() == L"Tab");
}

TEST_CASE("A flag that was saved as another number than True's comes back as it stands") {
    for (const auto& [type, number] : {std::pair(VT_BOOL, 5), std::pair(VT_I2, 5), std::pair(VT_I2, -1)}) {
        CAPTURE(type);
        CAPTURE(number);
        LooseControl control;
        SavedBytes saved;
        saved.Add(u"TabBorder", static_cast<std::uint16_t>(type), {static_cast<std::uint16_t>(number)});
        REQUIRE(control.As<IPersistStreamInit>()->Load(saved.Stream().Get()) == S_OK);
        VARIANT_BOOL border = 0;
        CHECK(control.Tab->get_TabBorder(&border) == S_OK);
        CHECK(border == number);
        const auto again = NewStream();
        REQUIRE(control.As<IPersistStreamInit>()->Save(again.Get(), TRUE) == S_OK);
        Rewind(*again.Get());
        REQUIRE(control.As<IPersistStreamInit>()->Load(again.Get()) == S_OK);
        CHECK(control.Tab->get_TabBorder(&border) == S_OK);
        CHECK(border == number);
    }
}

namespace {

// A bag in which one value cannot be read.
class BrokenBag final : public ComObject<IPropertyBag> {
public:
    explicit BrokenBag(HRESULT answer) : answer_(answer) {}
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        if (std::wstring_view(name) == L"BarWidth") return answer_;
        if (std::wstring_view(name) != L"TabToTab") return E_INVALIDARG;
        value->vt = VT_BSTR;
        value->bstrVal = SysAllocString(L"7");
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) noexcept override { return answer_; }

private:
    HRESULT answer_;
};

class RecordingLog final : public ComObject<IErrorLog> {
public:
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* exception) noexcept override {
        Names.push_back(name);
        Code = exception->scode;
        return S_OK;
    }
    std::vector<std::wstring> Names;
    HRESULT Code = S_OK;
};

} // namespace

namespace {

constexpr const wchar_t* AllKeys[] = {
    L"TabCount",       L"ActiveTab",      L"Picture",      L"TabBarPos",      L"TabPos",      L"BarWidth",
    L"TabBarPosXJust", L"TabBarPosYJust", L"TabOffSet",    L"DefaultCaption", L"Font",        L"CaptionPos",
    L"CaptionColor0",  L"CaptionColor1",  L"CaptionXjust", L"CaptionYjust",   L"IcoXjust",    L"IcoYjust",
    L"DelButton",      L"DelBtnXJust",    L"DelBtnYJust",  L"NavBtnYjust",    L"NavBtnXjust", L"FixOcxList",
    L"TabToTab",       L"TabBorder",      L"FrameDist",    L"SkinFile",       L"SkinPath"};

// Three tabs, and something that happens when one key is read.
class WatchedBag final : public ComObject<IPropertyBag> {
public:
    WatchedBag(std::wstring_view key, std::function<HRESULT()> during)
        : key_(key), during_(std::move(during)) {}
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        if (name == key_) {
            const HRESULT result = during_();
            if (FAILED(result)) return result;
        }
        if (std::wstring_view(name) != L"TabCount") return E_INVALIDARG;
        value->vt = VT_I2;
        value->iVal = 3;
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) noexcept override { return E_NOTIMPL; }

private:
    std::wstring_view key_;
    std::function<HRESULT()> during_;
};

// What a host may do with a control after a load, whatever came of that. Every member throws where it fails.
void CheckThatEveryMemberWorks(LooseControl& control) {
    IDispatch& tab = control.Dispatch();
    const auto count = [&] { return static_cast<std::int16_t>(Get(tab, L"TabCount").Number()); };
    try {
        StateOf(control);
        for (std::int16_t i = 0; i < count(); ++i) {
            CHECK(!Call(tab, L"GetTabCaption", {i}).Text().empty());
            CHECK(Call(tab, L"GetTabEnable", {i}).Flag());
            Call(tab, L"GetTabIco", {i});
            Call(tab, L"SetBarCaption", {i, L"caption", true});
            Call(tab, L"SetBarIco", {i, L"sun"});
            Call(tab, L"SetBarEnable", {i, true});
            Put(tab, L"ActiveTab", i);
        }
        Change(control);
        Call(tab, L"InsertTab", {std::int16_t{1}});
        Call(tab, L"RemoveTab", {std::int16_t{2}});
        CHECK(count() == 4);
        const Canvas canvas(300, 200);
        Draw(control.Object(), canvas.DC(), {0, 0, 300, 200});
    } catch (const AutomationError& error) {
        FAIL(error.what());
    }
}

} // namespace

TEST_CASE("After a load that fails at any key, by any route, every member works") {
    for (const wchar_t* key : AllKeys) {
        CAPTURE(ToUtf8(key));
        SavedBytes saved;
        if (key != AllKeys[0]) saved.Add(u"TabCount", VT_I2, {3});
        saved.Add(FromWide(key), 0x7777, {1});
        for (const std::int16_t before : {std::int16_t{0}, std::int16_t{8}}) {
            LooseControl byBag, byStream, byStorage;
            for (LooseControl* control : {&byBag, &byStream, &byStorage})
                if (before) Put(control->Dispatch(), L"TabCount", before);
            const auto bag = MakeCom<WatchedBag>(key, [] { return STG_E_READFAULT; });
            CHECK(byBag.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr) == STG_E_READFAULT);
            CHECK(FAILED(byStream.As<IPersistStreamInit>()->Load(saved.Stream().Get())));
            const auto storage = StorageOf(BytesOf(*saved.Stream().Get()));
            CHECK(FAILED(byStorage.As<IPersistStorage>()->Load(storage.Get())));
            for (LooseControl* control : {&byBag, &byStream, &byStorage}) CheckThatEveryMemberWorks(*control);
        }
    }
}

namespace {

// Three tabs, and any value for one key.
class OfferingBag final : public ComObject<IPropertyBag> {
public:
    OfferingBag(std::wstring_view key, const Variant& value) : key_(key), value_(value) {}
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        VARIANT three = {};
        three.vt = VT_I2;
        three.iVal = 3;
        if (name == key_) return VariantCopy(value, const_cast<VARIANT*>(&value_.Get()));
        return std::wstring_view(name) == L"TabCount" ? VariantCopy(value, &three) : E_INVALIDARG;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) noexcept override { return E_NOTIMPL; }

private:
    std::wstring_view key_;
    const Variant& value_;
};

// One value of each type that a variant can have, and the ends of the numbers.
std::vector<Variant> ValuesOfEveryType(IUnknown* object) {
    std::vector<Variant> values;
    const auto add = [&](VARTYPE type, auto set) {
        VARIANT value = {};
        value.vt = type;
        set(value);
        values.emplace_back(value);
        VariantClear(&value);
    };
    const auto nothing = [](VARIANT&) {};
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I1, VT_DATE, VT_CY, VT_DECIMAL, VT_ERROR, VT_DISPATCH,
                               VT_UNKNOWN, VT_BSTR, VT_UI8, VT_INT})
        add(type, nothing);
    for (const std::int16_t number : std::initializer_list<std::int16_t>{INT16_MIN, -1, 0, 1, INT16_MAX})
        add(VT_I2, [&](VARIANT& value) { value.iVal = number; });
    for (const std::int32_t number : {INT32_MIN, -2, 40000, INT32_MAX})
        add(VT_I4, [&](VARIANT& value) { value.lVal = LONG{number}; });
    for (const double number : {std::numeric_limits<double>::quiet_NaN(), -1e300, 1e300, 0.5})
        add(VT_R8, [&](VARIANT& value) { value.dblVal = number; });
    add(VT_UNKNOWN, [&](VARIANT& value) { (value.punkVal = object)->AddRef(); });
    add(VT_ARRAY | VT_UI1, [](VARIANT& value) { value.parray = SafeArrayCreateVector(VT_UI1, 0, 4); });
    for (const wchar_t* text : {L"", L"abc", L"7", L"..\\..\\", L"\\\\?\\C:\\con"})
        add(VT_BSTR, [&](VARIANT& value) { value.bstrVal = SysAllocString(text); });
    add(VT_BSTR, [](VARIANT& value) { value.bstrVal = SysAllocString(std::wstring(70000, L'x').c_str()); });
    return values;
}

} // namespace

TEST_CASE("Whatever a bag holds for a key, the load succeeds or fails and the control lives on") {
    LooseControl other;
    const auto values = ValuesOfEveryType(other.Object());
    const Canvas canvas(300, 200);
    for (const wchar_t* key : AllKeys)
        for (std::size_t i = 0; i < values.size(); ++i) {
            CAPTURE(ToUtf8(key));
            CAPTURE(i);
            LooseControl control;
            control.As<IPersistPropertyBag>()->Load(MakeCom<OfferingBag>(key, values[i]).Get(), nullptr);
            short count = 0, last = 0;
            REQUIRE(control.Tab->get_TabCount(&count) == S_OK);
            BSTR caption = nullptr;
            last = static_cast<short>(count - 1);
            CHECK(control.Tab->GetTabCaption(&last, &caption) == S_OK);
            CHECK((count == 0) == (std::wstring_view(caption) == L"-1"));
            SysFreeString(caption);
            Draw(control.Object(), canvas.DC(), {0, 0, 300, 200});
        }
}

TEST_CASE("A bag that calls back into the control while it is read finds and leaves a whole one") {
    for (const wchar_t* key : AllKeys) {
        CAPTURE(ToUtf8(key));
        LooseControl control;
        const auto other = MakeCom<WatchedBag>(L"", [] { return S_OK; });
        const auto bag = MakeCom<WatchedBag>(key, [&] {
            CheckThatEveryMemberWorks(control);
            return control.As<IPersistPropertyBag>()->Load(other.Get(), nullptr);
        });
        CHECK(control.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr) == S_OK);
        CHECK(Get(control.Dispatch(), L"TabCount").Number() == 3);
        CHECK(Call(control.Dispatch(), L"GetTabCaption", {std::int16_t{2}}).Text().ends_with(L"2"));
        CheckThatEveryMemberWorks(control);
    }
}

TEST_CASE("The folder of the built-in skin is told, but the one that the host set is saved") {
    LooseControl control;
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Parse("SkinPath = \"Lost\"\n");
    REQUIRE(control.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr) == S_OK);
    CHECK(Get(control.Dispatch(), L"SkinPath").Text() == L"Temp");
    const auto saved = MakeCom<TextPropertyBag>();
    REQUIRE(control.As<IPersistPropertyBag>()->Save(saved.Get(), TRUE, FALSE) == S_OK);
    CHECK(saved->Text() == bag->Text());
}

TEST_CASE("A bag's error goes to the loader, and the log names the property") {
    LooseControl control;
    const auto log = MakeCom<RecordingLog>();
    CHECK(control.As<IPersistPropertyBag>()->Load(MakeCom<BrokenBag>(STG_E_READFAULT).Get(), log.Get()) ==
          STG_E_READFAULT);
    CHECK(log->Names == std::vector<std::wstring>{L"BarWidth"});
    CHECK(log->Code == STG_E_READFAULT);
    CHECK(control.As<IPersistPropertyBag>()->Load(nullptr, nullptr) == E_POINTER);
}

TEST_CASE("A bag without a key gives the default, and text where a number belongs is converted") {
    LooseControl control;
    CHECK(control.As<IPersistPropertyBag>()->Load(MakeCom<BrokenBag>(E_INVALIDARG).Get(), nullptr) == S_OK);
    CHECK(Get(control.Dispatch(), L"BarWidth").Number() == 20);
    CHECK(Get(control.Dispatch(), L"TabToTab").Number() == 7);
}

TEST_CASE("A bag that cannot be written leaves the control changed") {
    LooseControl control;
    Put(control.Dispatch(), L"FrameDist", std::int16_t{5});
    CHECK(control.As<IPersistPropertyBag>()->Save(MakeCom<BrokenBag>(STG_E_MEDIUMFULL).Get(), TRUE, FALSE) ==
          STG_E_MEDIUMFULL);
    CHECK(control.As<IPersistStreamInit>()->IsDirty() == S_OK);
}

TEST_CASE("Captions that were set at run time are not saved: the defaults come back") {
    LooseControl control;
    control.Tab->put_TabCount(2);
    Call(control.Dispatch(), L"SetBarCaption", {std::int16_t{1}, L"Mine"});
    const auto stream = NewStream();
    control.As<IPersistStreamInit>()->Save(stream.Get(), TRUE);
    Rewind(*stream.Get());
    REQUIRE(control.As<IPersistStreamInit>()->Load(stream.Get()) == S_OK);
    CHECK(Call(control.Dispatch(), L"GetTabCaption", {std::int16_t{1}}).Text() == L"Tab1");
}

} // namespace vantik
