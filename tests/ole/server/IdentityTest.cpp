// One object with many interfaces: the rules of COM, and an outer object around it.
#include <doctest/doctest.h>

#include <objsafe.h>

#include "host/ComObject.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

const std::vector<IID> Interfaces = {IID_IUnknown,
                                     IID_IDispatch,
                                     IID__VantikFrameTab,
                                     IID_IOleObject,
                                     IID_IOleControl,
                                     IID_IOleWindow,
                                     IID_IOleInPlaceObject,
                                     IID_IOleInPlaceActiveObject,
                                     IID_IViewObject,
                                     IID_IViewObject2,
                                     IID_IViewObjectEx,
                                     IID_IDataObject,
                                     IID_IPersist,
                                     IID_IPersistPropertyBag,
                                     IID_IPersistStreamInit,
                                     IID_IPersistStorage,
                                     IID_IConnectionPointContainer,
                                     IID_IProvideClassInfo,
                                     IID_IProvideClassInfo2,
                                     IID_ISupportErrorInfo,
                                     IID_ISpecifyPropertyPages,
                                     IID_IPerPropertyBrowsing,
                                     IID_IQuickActivate};

ComPtr<IUnknown> Ask(IUnknown* object, REFIID iid) {
    ComPtr<IUnknown> found;
    if (FAILED(object->QueryInterface(iid, found.PutVoid()))) CHECK(!found);
    return found;
}

// An object that contains the control and shows its interfaces as its own.
class Outer final : public ComObject<IServiceProvider> {
public:
    explicit Outer(const ControlModule& module) {
        AddRef(); // while it is being made
        inner_ = module.Create(this);
    }
    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (SUCCEEDED(ComObject::QueryInterface(iid, object))) return S_OK;
        return inner_ ? inner_->QueryInterface(iid, object) : E_NOINTERFACE;
    }
    STDMETHODIMP QueryService(REFGUID, REFIID, void** object) noexcept override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    IUnknown* Inner() const noexcept { return inner_.Get(); }

private:
    ComPtr<IUnknown> inner_;
};

} // namespace

TEST_CASE("Every interface leads to every other and to one identity") {
    LooseControl control;
    const auto identity = Ask(control.Object(), IID_IUnknown);
    for (const IID& from : Interfaces) {
        const auto first = Ask(control.Object(), from);
        REQUIRE(first);
        CHECK(Ask(first.Get(), IID_IUnknown).Get() == identity.Get());
        for (const IID& to : Interfaces) CHECK(Ask(first.Get(), to));
    }
}

TEST_CASE("Interfaces that would promise too much are not there") {
    LooseControl control;
    CHECK(!Ask(control.Object(), IID_IObjectSafety));
    CHECK(!Ask(control.Object(), IID_IPersistStream)); // one kind of stream is enough
    CHECK(control.Object()->QueryInterface(IID_IDispatch, nullptr) == E_POINTER);
}

TEST_CASE("References are counted: the last one ends the control, and the module can go") {
    LooseControl control;
    CHECK(!control.Module().CanUnload());
    auto view = control.As<IViewObject>();
    control.Release();
    CHECK(!control.Module().CanUnload());
    view.Reset();
    CHECK(control.Module().CanUnload());
}

TEST_CASE("An enumerator keeps the module, not the control") {
    LooseControl control;
    ComPtr<IEnumOLEVERB> verbs;
    REQUIRE(control.As<IOleObject>()->EnumVerbs(verbs.Put()) == S_OK);
    control.Release();
    CHECK(!control.Module().CanUnload());
    OLEVERB verb = {};
    REQUIRE(verbs->Next(1, &verb, nullptr) == S_OK);
    CHECK(std::wstring_view(verb.lpszVerbName) == L"&Edit");
    CoTaskMemFree(verb.lpszVerbName);
    verbs.Reset();
    CHECK(control.Module().CanUnload());
}

TEST_CASE("An outer object and the control inside it are one object") {
    const OleApartment apartment;
    const ControlModule module(FindBuiltControl());
    {
        const auto outer = ComPtr<Outer>::Adopt(new Outer(module));
        const auto identity = Ask(outer.Get(), IID_IUnknown);
        for (const IID& iid : Interfaces) {
            const auto face = Ask(outer.Get(), iid);
            REQUIRE(face);
            CHECK(Ask(face.Get(), IID_IUnknown).Get() == identity.Get());
            CHECK(Ask(face.Get(), __uuidof(IServiceProvider)));
        }
        CHECK(Ask(outer->Inner(), IID_IUnknown).Get() == outer->Inner()); // the inner one does not delegate
        const auto tab = QueryFor<::_VantikFrameTab>(outer.Get());
        CHECK(tab->put_TabCount(2) == S_OK);
    }
    CHECK(module.CanUnload());
}

TEST_CASE("Aggregation is refused for anything but the inner identity, and unknown classes are not made") {
    const OleApartment apartment;
    const HMODULE module = LoadLibraryW(FindBuiltControl().c_str());
    REQUIRE(module);
    const auto getClass = reinterpret_cast<LPFNGETCLASSOBJECT>(GetProcAddress(module, "DllGetClassObject"));
    {
        ComPtr<IClassFactory> factory;
        REQUIRE(getClass(CLSID_VantikFrameTab, IID_IClassFactory, factory.PutVoid()) == S_OK);
        ComPtr<IUnknown> made;
        CHECK(factory->CreateInstance(factory.Get(), IID_IDispatch, made.PutVoid()) == CLASS_E_NOAGGREGATION);
        CHECK(factory->CreateInstance(nullptr, IID_IStream, made.PutVoid()) == E_NOINTERFACE);
        CHECK(factory->CreateInstance(nullptr, IID_IDispatch, nullptr) == E_POINTER);
        CHECK(getClass(CLSID_NULL, IID_IClassFactory, made.PutVoid()) == CLASS_E_CLASSNOTAVAILABLE);
        CHECK(getClass(CLSID_VantikFrameTab, IID_IClassFactory2, made.PutVoid()) ==
              E_NOINTERFACE); // no licence
    }
    const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(GetProcAddress(module, "DllCanUnloadNow"));
    CHECK(canUnload() == S_OK);
    FreeLibrary(module);
}

} // namespace vantik
