// What is saved comes back by every route that a host may take, and whether there is anything to be saved is told.
#include <doctest/doctest.h>

#include "host/TextPropertyBag.h"
#include "ole/faces/SavedControl.h"

namespace vantik {

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
