// Each request for memory fails once, in every member of every interface, bound early and late, in every event and every
// message of the window: the call fails or does what it always does, and the control lives on.
#include <doctest/doctest.h>

#include <array>
#include <functional>

#include "acctree/TreeText.h"
#include "host/TextPropertyBag.h"
#include "host/TypeAttributes.h"
#include "hostile/ModuleMemory.h"
#include "ole/LooseControl.h"
#include "ole/window/WindowedControl.h"

namespace vantik {

namespace {

struct Subject : LooseControl {
    Subject() {
        const Bstr longText(L"longer than any text that needs no memory");
        Tab->put_DefaultCaption(longText.Get());
        Tab->put_FixOcxList(longText.Get());
        Tab->put_BarWidth(60);
        Tab->put_TabCount(4);
        Tab->put_ActiveTab(0);
        BSTR key = SysAllocString(L"sun");
        for (short index = 0; index < 4; ++index) Tab->SetBarIco(&index, &key);
        SysFreeString(key);
        Paint();
    }

    void Paint() const { RedrawWindow(InWindow.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

    // Fails each request that the call makes, one after the other.
    void Sweep(const std::string& name, const std::function<HRESULT()>& call) {
        CAPTURE(name);
        const HRESULT usual = call();
        Tab->put_TabCount(4);
        for (long number = 0;; ++number) {
            REQUIRE(number < 20000);
            memory_.FailAt(number);
            const HRESULT result = call();
            const bool failed = memory_.HasFailed();
            memory_.FailNone();
            Tab->put_TabCount(4);
            if (failed) continue;
            CHECK(result == usual);
            break;
        }
        short tabs = -1;
        CHECK(Tab->get_TabCount(&tabs) == S_OK);
        CHECK(tabs > 0);
    }

    WindowedControl InWindow{As<IUnknown>(), {0, 0, 240, 120}};

private:
    ModuleMemory memory_{GetModuleHandleW(L"VantikFrameTab.ocx")};
};

// The values that a call passes, by reference where the description says so; they live as long as this.
class Arguments {
public:
    Arguments(const FUNCDESC& function, const VARIANT& putValue) {
        for (SHORT i = function.cParams; i-- > 0;) // in reverse order
            Add(function.lprgelemdescParam[i].tdesc, putValue);
        if (function.invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) {
            parameters_.rgdispidNamedArgs = &put_;
            parameters_.cNamedArgs = 1;
        }
        parameters_.rgvarg = values_.data();
        parameters_.cArgs = static_cast<UINT>(function.cParams);
    }
    ~Arguments() { SysFreeString(text_); }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    DISPPARAMS* Get() noexcept { return &parameters_; }

private:
    void Add(const TYPEDESC& type, const VARIANT& putValue) {
        VARIANT& value = values_.at(parameters_.cArgs++);
        value = putValue;
        if (putValue.vt != VT_EMPTY) return;
        const bool byReference = type.vt == VT_PTR;
        const VARTYPE plain = byReference ? type.lptdesc->vt : type.vt;
        value.vt = static_cast<VARTYPE>(plain | (byReference ? VT_BYREF : 0));
        if (plain == VT_BSTR && byReference)
            value.pbstrVal = &text_;
        else if (plain == VT_BSTR)
            value.bstrVal = text_;
        else if (byReference)
            value.plVal = &numbers_.at(parameters_.cArgs);
        else
            value.lVal = 1;
    }

    std::array<VARIANT, 8> values_ = {};
    std::array<LONG, 9> numbers_ = {1, 1, 1, 1, 1, 1, 1, 1, 1};
    BSTR text_ = SysAllocString(L"longer than any text that needs no memory");
    DISPID put_ = DISPID_PROPERTYPUT;
    DISPPARAMS parameters_ = {};
};

// Closes the card, which waits for a user.
class CardCloser {
public:
    CardCloser() : hook_(SetWindowsHookExW(WH_CBT, Watch, nullptr, GetCurrentThreadId())) {}
    ~CardCloser() { UnhookWindowsHookEx(hook_); }
    CardCloser(const CardCloser&) = delete;
    CardCloser& operator=(const CardCloser&) = delete;

private:
    // The card's loop finds what is posted while it is made.
    static LRESULT CALLBACK Watch(int code, WPARAM wParam, LPARAM lParam) {
        const auto window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_CREATEWND && IsCard(window)) PostMessageW(window, WM_CLOSE, 0, 0);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static bool IsCard(HWND window) {
        wchar_t name[64] = {};
        GetClassNameW(window, name, 64);
        return std::wstring_view(name) == L"VantikFrameTab.frmAbout";
    }

    HHOOK hook_;
};

class MemberCalls {
public:
    explicit MemberCalls(Subject& subject) : subject_(subject) {
        REQUIRE(subject.Tab->GetTypeInfo(0, 0, type_.Put()) == S_OK);
    }

    UINT Count() const { return LentAttributes(*type_.Get())->cFuncs; }

    // Properties are set to what they are.
    void Sweep(UINT index) {
        const LentFunction function(*type_.Get(), index);
        const std::wstring name = NamesOf(*type_.Get(), function->memid).front();
        if (function->wFuncFlags & FUNCFLAG_FRESTRICTED) return;
        Variant value;
        if (function->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF))
            value = Get(*subject_.Tab.Get(), name);
        const std::string text(name.begin(), name.end());
        subject_.Sweep(text + ", early bound", [&] { return Early(function, value.Get()); });
        subject_.Sweep(text + ", late bound", [&] { return Late(function, value.Get()); });
    }

private:
    HRESULT Early(const LentFunction& function, const VARIANT& value) {
        Arguments arguments(*function.operator->(), value);
        Variant result;
        EXCEPINFO exception = {};
        return Ended(type_->Invoke(subject_.Tab.Get(), function->memid, static_cast<WORD>(function->invkind),
                                   arguments.Get(), result.Put(), &exception, nullptr),
                     exception);
    }
    HRESULT Late(const LentFunction& function, const VARIANT& value) {
        Arguments arguments(*function.operator->(), value);
        Variant result;
        EXCEPINFO exception = {};
        return Ended(subject_.Tab->Invoke(function->memid, IID_NULL, 0, static_cast<WORD>(function->invkind),
                                          arguments.Get(), result.Put(), &exception, nullptr),
                     exception);
    }
    static HRESULT Ended(HRESULT result, EXCEPINFO& exception) {
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        return result;
    }

    Subject& subject_;
    ComPtr<ITypeInfo> type_;
};

} // namespace

TEST_CASE("memory fails in every member, bound early and late") {
    Subject subject;
    const CardCloser closer;
    MemberCalls calls(subject);
    for (UINT index = 0; index < calls.Count(); ++index) calls.Sweep(index);
}

namespace {

// A reference to what a call gave out.
template <class Interface>
using Out = ComPtr<Interface>;

template <class Enumerator, class Item>
HRESULT TakeOne(const Out<Enumerator>& objects, Item& item) {
    if (!objects) return E_FAIL;
    Out<Enumerator> copy;
    objects->Clone(copy.Put());
    return objects->Next(1, &item, nullptr);
}

class Sink final : public ComObject<IAdviseSink> {
public:
    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) noexcept override {}
    void STDMETHODCALLTYPE OnRename(IMoniker*) noexcept override {}
    void STDMETHODCALLTYPE OnSave() noexcept override {}
    void STDMETHODCALLTYPE OnClose() noexcept override {}
};

ComPtr<IStream> NewStream() {
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.Put());
    return stream;
}

void Rewind(IStream& stream) { stream.Seek({}, STREAM_SEEK_SET, nullptr); }

} // namespace

TEST_CASE("memory fails in every call of the object's and the window's interfaces") {
    Subject s;
    const auto object = s.As<IOleObject>();
    const auto data = s.As<IDataObject>();
    const auto sink = MakeCom<Sink>();
    for (const LONG verb : {OLEIVERB_HIDE, OLEIVERB_SHOW, OLEIVERB_UIACTIVATE, OLEIVERB_PROPERTIES, LONG{1}})
        s.Sweep("verb " + std::to_string(verb),
                [&] { return object->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr); });
    s.Sweep("InPlaceDeactivate, and active again", [&] {
        s.As<IOleInPlaceObject>()->InPlaceDeactivate();
        return object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
    });
    s.Sweep("SetObjectRects", [&] {
        const RECT small = {0, 0, 200, 100}, large = {0, 0, 240, 120};
        s.As<IOleInPlaceObject>()->SetObjectRects(&small, &small);
        return s.As<IOleInPlaceObject>()->SetObjectRects(&large, &large);
    });
    s.Sweep("TranslateAccelerator", [&] {
        MSG key = {s.InWindow.Window(), WM_KEYDOWN, VK_RIGHT, 0, 0, {}};
        return s.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&key);
    });
    s.Sweep("EnumVerbs", [&] {
        Out<IEnumOLEVERB> verbs;
        OLEVERB verb = {};
        object->EnumVerbs(verbs.Put());
        const HRESULT result = TakeOne(verbs, verb);
        CoTaskMemFree(verb.lpszVerbName);
        return result;
    });
    s.Sweep("GetUserType", [&] {
        LPOLESTR type = nullptr;
        const HRESULT result = object->GetUserType(USERCLASSTYPE_FULL, &type);
        CoTaskMemFree(type);
        return result;
    });
    s.Sweep("SetExtent", [&] {
        SIZEL size = {5000, 3000};
        return object->SetExtent(DVASPECT_CONTENT, &size);
    });
    s.Sweep("Advise", [&] {
        DWORD connection = 0;
        Out<IEnumSTATDATA> all;
        object->EnumAdvise(all.Put());
        const HRESULT result = object->Advise(sink.Get(), &connection);
        if (result == S_OK) object->Unadvise(connection);
        return result;
    });
    s.Sweep("DAdvise", [&] {
        FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
        DWORD connection = 0;
        Out<IEnumSTATDATA> all;
        data->EnumDAdvise(all.Put());
        const HRESULT result = data->DAdvise(&format, 0, sink.Get(), &connection);
        if (result == S_OK) data->DUnadvise(connection);
        return result;
    });
    s.Sweep("GetData", [&] {
        FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
        STGMEDIUM medium = {};
        const HRESULT result = data->GetData(&format, &medium);
        if (result == S_OK) ReleaseStgMedium(&medium);
        return result;
    });
    s.Sweep("EnumFormatEtc", [&] {
        Out<IEnumFORMATETC> formats;
        FORMATETC format = {};
        data->EnumFormatEtc(DATADIR_GET, formats.Put());
        return TakeOne(formats, format);
    });
    s.Sweep("Draw", [&] {
        const test::TestSurface surface(240, 120);
        const RECTL bounds = {0, 0, 240, 120};
        return s.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, surface.DC(),
                                         &bounds, nullptr, nullptr, 0);
    });
    s.Sweep("SetAdvise", [&] { return s.As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, sink.Get()); });
    s.Sweep("OnAmbientPropertyChange",
            [&] { return s.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN); });
    s.Sweep("another site, and back", [&] {
        object->SetClientSite(nullptr);
        object->SetClientSite(&s.InWindow.Site());
        return object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
    });
    s.Sweep("Close", [&] {
        object->Close(OLECLOSE_SAVEIFDIRTY);
        return object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
    });
}

TEST_CASE("memory fails in every call that connects, describes, saves or loads") {
    Subject s;
    const auto stream = NewStream();
    const auto persist = s.As<IPersistStreamInit>();
    REQUIRE(persist->Save(stream.Get(), FALSE) == S_OK);
    s.Sweep("saving to a stream", [&] { return persist->Save(NewStream().Get(), TRUE); });
    s.Sweep("GetSizeMax", [&] {
        ULARGE_INTEGER size = {};
        return persist->GetSizeMax(&size);
    });
    s.Sweep("loading from a stream", [&] {
        Rewind(*stream.Get());
        return persist->Load(stream.Get());
    });
    const auto bag = MakeCom<TextPropertyBag>();
    s.Sweep("saving to a bag", [&] { return s.As<IPersistPropertyBag>()->Save(bag.Get(), TRUE, TRUE); });
    s.Sweep("loading from a bag", [&] { return s.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr); });
    s.Sweep("saving to a storage, and loading", [&] {
        Out<IStorage> storage;
        StgCreateDocfile(nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE,
                         0, storage.Put());
        const HRESULT saved = s.As<IPersistStorage>()->Save(storage.Get(), FALSE);
        return FAILED(saved) ? saved : s.As<IPersistStorage>()->Load(storage.Get());
    });
    const auto points = s.As<IConnectionPointContainer>();
    s.Sweep("EnumConnectionPoints", [&] {
        Out<IEnumConnectionPoints> all;
        Out<IConnectionPoint> point;
        points->EnumConnectionPoints(all.Put());
        return all ? all->Next(1, point.Put(), nullptr) : E_FAIL;
    });
    s.Sweep("Advise", [&] {
        Out<IConnectionPoint> point;
        Out<IEnumConnections> all;
        DWORD cookie = 0;
        points->FindConnectionPoint(IID_IPropertyNotifySink, point.Put());
        point->EnumConnections(all.Put());
        const auto log = MakeCom<EventLog>();
        points->FindConnectionPoint(DIID___VantikFrameTab, point.Put());
        const HRESULT result = point->Advise(log.Get(), &cookie);
        if (result == S_OK) point->Unadvise(cookie);
        return result;
    });
    s.Sweep("GetClassInfo", [&] {
        Out<ITypeInfo> info;
        return s.As<IProvideClassInfo>()->GetClassInfo(info.Put());
    });
    s.Sweep("GetPages", [&] {
        CAUUID pages = {};
        const HRESULT result = s.As<ISpecifyPropertyPages>()->GetPages(&pages);
        CoTaskMemFree(pages.pElems);
        return result;
    });
    for (const wchar_t* const name : {L"TabPos", L"Font", L"TabBorder"}) {
        const DISPID id = *FindMember(s.Dispatch(), name);
        const auto browsing = s.As<IPerPropertyBrowsing>();
        s.Sweep("GetDisplayString", [&] {
            Bstr text(L"");
            return browsing->GetDisplayString(id, text.Put());
        });
        s.Sweep("GetPredefinedStrings", [&] {
            CALPOLESTR strings = {};
            CADWORD cookies = {};
            const HRESULT result = browsing->GetPredefinedStrings(id, &strings, &cookies);
            for (ULONG i = 0; result == S_OK && i < strings.cElems; ++i) CoTaskMemFree(strings.pElems[i]);
            CoTaskMemFree(strings.pElems);
            CoTaskMemFree(cookies.pElems);
            return result;
        });
        s.Sweep("GetPredefinedValue", [&] {
            Variant value;
            return browsing->GetPredefinedValue(id, 0, value.Put());
        });
    }
    s.Sweep("GetIDsOfNames", [&] {
        DISPID id = 0;
        wchar_t name[] = L"TabCount";
        LPOLESTR names = name;
        return s.Tab->GetIDsOfNames(IID_NULL, &names, 1, 0, &id);
    });
    s.Sweep("QuickActivate", [&] {
        QACONTAINER container = {};
        QACONTROL result = {};
        container.cbSize = sizeof container;
        result.cbSize = sizeof result;
        container.pClientSite = &s.InWindow.Site();
        return s.As<IQuickActivate>()->QuickActivate(&container, &result);
    });
}

TEST_CASE("memory fails in every event, and in whatever leads to it") {
    Subject s;
    const auto sweep = [&](const char* name, const std::function<void()>& deed) {
        s.Sweep(name, [&] {
            deed();
            s.Paint();
            return S_OK;
        });
    };
    s.Tab->put_TabCount(9); // more than there is room for
    for (const LONG side : {0L, 1L, 2L, 3L}) {
        s.Tab->put_TabPos(static_cast<dTabPos>(side));
        for (const POINT at : {POINT{20, 10}, POINT{80, 10}, POINT{55, 8}, POINT{10, 60}, POINT{230, 110},
                               POINT{190, 10}, POINT{208, 10}, POINT{226, 10}, POINT{120, 60}}) {
            CAPTURE(at.x);
            sweep("a click", [&] { s.InWindow.Click(at); });
            sweep("a click with the right button", [&] {
                SendMessageW(s.InWindow.Window(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(at.x, at.y));
                SendMessageW(s.InWindow.Window(), WM_RBUTTONUP, 0, MAKELPARAM(at.x, at.y));
            });
        }
    }
    for (const WPARAM key : {WPARAM{VK_LEFT}, WPARAM{VK_RIGHT}})
        sweep("a key", [&] { SendMessageW(s.InWindow.Window(), WM_KEYDOWN, key, 0); });
    for (const SHORT turn : {SHORT{120}, SHORT{-120}})
        sweep("the wheel", [&] {
            SendMessageW(s.InWindow.Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, turn), MAKELPARAM(20, 10));
        });
}

TEST_CASE("memory fails in whatever a screen reader asks and does") {
    Subject s;
    const HWND window = s.InWindow.Window();
    const auto row = [&] { return Node::OfWindow(window); };
    REQUIRE(row()->Children().size() > 4);
    s.Sweep("the tree", [&] {
        if (const auto root = row()) TreeText(*root, {});
        return S_OK;
    });
    const Node root = *row();
    const VARIANT self = root.Id();
    for (std::size_t child = 0; child < 7; ++child) {
        CAPTURE(child);
        s.Sweep("an action", [&] {
            const auto children = root.Children();
            if (child < children.size()) children[child]->accDoDefaultAction(self);
            return S_OK;
        });
    }
    s.Sweep("navigation and hit tests", [&] {
        for (LONG direction = NAVDIR_UP; direction <= NAVDIR_LASTCHILD; ++direction) root.Navigate(direction);
        const RECT place = root.Place();
        root.HitTest({place.left + 20, place.top + 10});
        root.Focus();
        root.Selection();
        return S_OK;
    });
}

TEST_CASE("memory fails in every message of the window") {
    Subject s;
    for (UINT number = 0; number < 0x0400; ++number) {
        switch (number) {
        case WM_CREATE: // with what a creation tells only, when the control is active again
        case WM_NCCREATE:
        case WM_DESTROY: // in the next test
        case WM_NCDESTROY:
        case WM_CLOSE: continue;
        default: break;
        }
        CAPTURE(number);
        s.Sweep("a message", [&] {
            std::array<std::byte, 1024> memory = {}; // for messages that point at something
            SendMessageW(s.InWindow.Window(), number, 0, reinterpret_cast<LPARAM>(memory.data()));
            return S_OK;
        });
    }
    CHECK(IsWindow(s.InWindow.Window()));
}

TEST_CASE("memory fails in the messages that end the window") {
    Subject s;
    for (const UINT number : std::initializer_list<UINT>{WM_CLOSE, WM_DESTROY, WM_NCDESTROY}) {
        CAPTURE(number);
        s.Sweep("a last message", [&] {
            HWND window = nullptr;
            s.As<IOleInPlaceObject>()->GetWindow(&window);
            SendMessageW(window, number, 0, 0);
            if (IsWindow(window)) DestroyWindow(window); // two of them are messages only
            s.As<IOleInPlaceObject>()->InPlaceDeactivate();
            return s.As<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        });
    }
}

} // namespace vantik
