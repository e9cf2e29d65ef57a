// The smaller questions that hosts ask of an embedded object, and its refusals of what it does not do.
#include <doctest/doctest.h>

#include "ole/LooseControl.h"
#include "ole/OddSite.h"

namespace vantik {

namespace {

std::wstring UserType(LooseControl& control, DWORD form) {
    LPOLESTR text = nullptr;
    REQUIRE(control.As<IOleObject>()->GetUserType(form, &text) == S_OK);
    const std::wstring type = text;
    CoTaskMemFree(text);
    return type;
}

class IdleSink final : public ComObject<IAdviseSink> {
public:
    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) noexcept override {}
    void STDMETHODCALLTYPE OnRename(IMoniker*) noexcept override {}
    void STDMETHODCALLTYPE OnSave() noexcept override {}
    void STDMETHODCALLTYPE OnClose() noexcept override {}
};

// How many are left; what they refer to is released.
int CountOf(IEnumSTATDATA* advises) {
    int count = 0;
    STATDATA advise = {};
    while (advises && advises->Next(1, &advise, nullptr) == S_OK) {
        ++count;
        if (advise.pAdvSink) advise.pAdvSink->Release();
        CoTaskMemFree(advise.formatetc.ptd);
    }
    return count;
}

} // namespace

TEST_CASE("The object says its class by every interface that is asked for it") {
    LooseControl control;
    CLSID id = CLSID_NULL;
    CHECK(control.As<IOleObject>()->GetUserClassID(&id) == S_OK);
    CHECK(id == CLSID_VantikFrameTab);
    for (const IID& iid : {IID_IPersistStreamInit, IID_IPersistPropertyBag, IID_IPersistStorage}) {
        ComPtr<IPersist> persist;
        REQUIRE(control.Object()->QueryInterface(iid, persist.PutVoid()) == S_OK);
        id = CLSID_NULL;
        CHECK(persist->GetClassID(&id) == S_OK);
        CHECK(id == CLSID_VantikFrameTab);
        CHECK(persist->GetClassID(nullptr) == E_POINTER);
    }
    CHECK(UserType(control, USERCLASSTYPE_FULL) == L"Vantik Frame Tab control");
    CHECK(UserType(control, USERCLASSTYPE_SHORT) == L"VantikFrameTab");
    CHECK(control.As<IOleObject>()->GetUserType(USERCLASSTYPE_FULL, nullptr) == E_POINTER);
}

TEST_CASE("What needs no deed is agreed to, what the object cannot do is refused and leaves no pointer") {
    LooseControl control;
    const auto object = control.As<IOleObject>();
    CHECK(object->SetHostNames(L"Host", L"Form1") == S_OK);
    CHECK(object->Update() == S_OK);
    CHECK(object->IsUpToDate() == S_OK);
    CHECK(object->SetMoniker(OLEWHICHMK_CONTAINER, nullptr) == E_NOTIMPL);
    ComPtr<IMoniker> moniker;
    CHECK(object->GetMoniker(OLEGETMONIKER_ONLYIFTHERE, OLEWHICHMK_OBJFULL, moniker.Put()) == E_NOTIMPL);
    CHECK(!moniker);
    ComPtr<IDataObject> data;
    CHECK(object->GetClipboardData(0, data.Put()) == E_NOTIMPL);
    CHECK(!data);
    CHECK(object->InitFromData(nullptr, FALSE, 0) == E_NOTIMPL);
}

TEST_CASE("There are no mnemonics, and a host that asks is told so") {
    LooseControl control;
    CONTROLINFO info = {};
    info.cb = sizeof info;
    info.cAccel = 9;
    CHECK(control.As<IOleControl>()->GetControlInfo(&info) == S_OK);
    CHECK(info.cAccel == 0);
    CHECK(info.hAccel == nullptr);
    CHECK(info.dwFlags == 0);
    CHECK(control.As<IOleControl>()->GetControlInfo(nullptr) == E_POINTER);
    MSG key = {nullptr, WM_SYSKEYDOWN, 'A', 0, 0, {0, 0}};
    CHECK(control.As<IOleControl>()->OnMnemonic(&key) == S_OK);
}

TEST_CASE("Closing saves what has to be saved, if the host wishes it") {
    struct Closing {
        DWORD Option;
        bool Changed, Saves;
    };
    for (const auto [option, changed, saves] :
         {Closing{OLECLOSE_SAVEIFDIRTY, true, true}, Closing{OLECLOSE_SAVEIFDIRTY, false, false},
          Closing{OLECLOSE_NOSAVE, true, false}, Closing{OLECLOSE_PROMPTSAVE, true, true}}) {
        CAPTURE(option);
        LooseControl control;
        const auto site = MakeCom<OddSite>();
        control.As<IOleObject>()->SetClientSite(site.Get());
        if (changed) control.Tab->put_FrameDist(3);
        CHECK(control.As<IOleObject>()->Close(option) == S_OK);
        CHECK(site->Calls == (saves ? std::vector<std::string>{"SaveObject"} : std::vector<std::string>{}));
        control.As<IOleObject>()->SetClientSite(nullptr);
    }
}

TEST_CASE("The site is given back as it was set") {
    LooseControl control;
    const auto site = MakeCom<OddSite>();
    ComPtr<IOleClientSite> found;
    CHECK(control.As<IOleObject>()->GetClientSite(found.Put()) == S_OK);
    CHECK(!found);
    control.As<IOleObject>()->SetClientSite(site.Get());
    CHECK(control.As<IOleObject>()->GetClientSite(found.Put()) == S_OK);
    CHECK(found.Get() == static_cast<IOleClientSite*>(site.Get()));
    control.As<IOleObject>()->SetClientSite(nullptr);
}

TEST_CASE("Those who watch the object and its data are listed for as long as they watch") {
    LooseControl control;
    const auto sink = MakeCom<IdleSink>();
    const auto object = control.As<IOleObject>();
    const auto data = control.As<IDataObject>();
    FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    DWORD watching = 0, reading = 0;
    REQUIRE(object->Advise(sink.Get(), &watching) == S_OK);
    REQUIRE(data->DAdvise(&format, ADVF_NODATA, sink.Get(), &reading) == S_OK);
    ComPtr<IEnumSTATDATA> advises;
    CHECK(object->EnumAdvise(advises.Put()) == S_OK);
    CHECK(CountOf(advises.Get()) == 1);
    CHECK(data->EnumDAdvise(advises.Put()) == S_OK);
    CHECK(CountOf(advises.Get()) == 1);
    CHECK(object->Unadvise(watching) == S_OK);
    CHECK(data->DUnadvise(reading) == S_OK);
    CHECK(FAILED(object->Unadvise(watching)));
    CHECK(FAILED(data->DUnadvise(reading)));
    LooseControl unwatched;
    CHECK(unwatched.As<IOleObject>()->Unadvise(1) == OLE_E_NOCONNECTION);
    CHECK(unwatched.As<IDataObject>()->DUnadvise(1) == OLE_E_NOCONNECTION);
}

TEST_CASE("Data goes out as a metafile in memory of the object's own, and no data comes in") {
    LooseControl control;
    const auto data = control.As<IDataObject>();
    FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT}, canonical = {};
    STGMEDIUM medium = {};
    CHECK(data->GetDataHere(&format, &medium) == DV_E_FORMATETC);
    CHECK(data->SetData(&format, &medium, FALSE) == DV_E_FORMATETC);
    CHECK(data->GetCanonicalFormatEtc(&format, &canonical) == DATA_S_SAMEFORMATETC);
    CHECK(canonical.cfFormat == CF_METAFILEPICT);
    CHECK(canonical.ptd == nullptr);
    ComPtr<IEnumFORMATETC> formats;
    CHECK(data->EnumFormatEtc(DATADIR_SET, formats.Put()) == E_NOTIMPL);
    CHECK(!formats);
}

TEST_CASE("The view fills the extent, and takes part in no freezing") {
    LooseControl control;
    const auto view = control.As<IViewObjectEx>();
    SIZEL size = {4000, 3000}, extent = {};
    REQUIRE(control.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size) == S_OK);
    RECTL area = {};
    CHECK(view->GetRect(DVASPECT_CONTENT, &area) == S_OK);
    CHECK(area.right == 4000);
    CHECK(area.bottom == 3000);
    CHECK(view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &extent) == S_OK);
    CHECK(extent.cx == 4000);
    CHECK(view->GetRect(DVASPECT_ICON, &area) == DV_E_DVASPECT);
    DWORD key = 7;
    CHECK(view->Freeze(DVASPECT_CONTENT, -1, nullptr, &key) == E_NOTIMPL);
    CHECK(key == 0);
}

TEST_CASE("An object that is not active has no window and nothing to undo") {
    LooseControl control;
    const auto object = control.As<IOleInPlaceObject>();
    const auto active = control.As<IOleInPlaceActiveObject>();
    HWND window = GetDesktopWindow();
    CHECK(object->GetWindow(&window) == E_FAIL);
    CHECK(window == nullptr);
    CHECK(object->GetWindow(nullptr) == E_POINTER);
    CHECK(object->InPlaceDeactivate() == S_OK);
    CHECK(object->UIDeactivate() == S_OK);
    CHECK(object->ReactivateAndUndo() == INPLACE_E_NOTUNDOABLE);
    CHECK(active->OnFrameWindowActivate(TRUE) == S_OK);
    CHECK(active->OnDocWindowActivate(TRUE) == S_OK);
    CHECK(active->EnableModeless(FALSE) == S_OK);
    const RECT border = {0, 0, 100, 100};
    CHECK(active->ResizeBorder(&border, nullptr, TRUE) == S_OK);
}

TEST_CASE("A locked server stays loaded without objects") {
    const OleApartment apartment;
    const HMODULE module = LoadLibraryW(FindBuiltControl().c_str());
    REQUIRE(module);
    const auto getClass = reinterpret_cast<LPFNGETCLASSOBJECT>(GetProcAddress(module, "DllGetClassObject"));
    const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(GetProcAddress(module, "DllCanUnloadNow"));
    {
        ComPtr<IClassFactory> factory;
        REQUIRE(getClass(CLSID_VantikFrameTab, IID_IClassFactory, factory.PutVoid()) == S_OK);
        CHECK(factory->LockServer(TRUE) == S_OK);
    }
    CHECK(canUnload() == S_FALSE);
    {
        ComPtr<IClassFactory> factory;
        REQUIRE(getClass(CLSID_VantikFrameTab, IID_IClassFactory, factory.PutVoid()) == S_OK);
        CHECK(factory->LockServer(FALSE) == S_OK);
    }
    CHECK(canUnload() == S_OK);
    FreeLibrary(module);
}

} // namespace vantik
