// Calls of the interfaces by which a container lives with an embedded object.
#include "hostile/random/Actions.h"
#include "hostile/random/RandomFrame.h"
#include "hostile/random/RandomSinks.h"
#include "hostile/random/RandomSite.h"

namespace vantik {

namespace {

void SetSite(World& world, Place& place) {
    const Lent<IOleObject> object(world, place);
    const auto site =
        world.Draw.OneIn(4) ? nullptr : MakeCom<RandomSite>(world, place.Number).As<IOleClientSite>();
    place.Site = site;
    world.Log.Result(object->SetClientSite(site.Get()));
    ComPtr<IOleClientSite> answer;
    const Lent<IOleObject> again(world, place);
    if (again) again->GetClientSite(answer.Put());
}

void Verb(World& world, Place& place) {
    static constexpr LONG Verbs[] = {OLEIVERB_PRIMARY,
                                     OLEIVERB_SHOW,
                                     OLEIVERB_OPEN,
                                     OLEIVERB_HIDE,
                                     OLEIVERB_UIACTIVATE,
                                     OLEIVERB_INPLACEACTIVATE,
                                     OLEIVERB_SHOW,
                                     OLEIVERB_UIACTIVATE,
                                     OLEIVERB_DISCARDUNDOSTATE,
                                     2,
                                     3,
                                     4,
                                     5,
                                     6,
                                     -8,
                                     2147483647};
    const Lent<IOleObject> object(world, place);
    const LONG verb = world.Draw.Of(Verbs);
    const RECT rect = RandomRect(world);
    world.Log.Note("verb " + std::to_string(verb));
    world.Log.Result(object->DoVerb(verb, nullptr, place.Site.Get(), 0, place.Form,
                                    world.Draw.OneIn(3) ? nullptr : &rect));
}

// Only where the site shows its own pages: those of the system are a dialog.
void Properties(World& world, Place& place) {
    const Lent<IOleObject> object(world, place);
    ComPtr<IOleClientSite> site;
    object->GetClientSite(site.Put());
    if (!site.As<IOleControlSite>()) return;
    world.Log.Result(object->DoVerb(OLEIVERB_PROPERTIES, nullptr, nullptr, 0, nullptr, nullptr));
}

void Close(World& world, Place& place) {
    const Lent<IOleObject> object(world, place);
    world.Log.Result(object->Close(static_cast<DWORD>(world.Draw.Below(4))));
}

void Extent(World& world, Place& place) {
    const Lent<IOleObject> object(world, place);
    const RECT rect = RandomRect(world);
    SIZEL size = {rect.right, rect.bottom};
    if (world.Draw.OneIn(2)) size = {size.cx * 26, size.cy * 26};
    const DWORD aspect =
        world.Draw.OneIn(8) ? static_cast<DWORD>(world.Draw.Number()) : DWORD{DVASPECT_CONTENT};
    world.Log.Result(object->SetExtent(aspect, world.Draw.OneIn(20) ? nullptr : &size));
    const Lent<IOleObject> again(world, place);
    if (again) again->GetExtent(DVASPECT_CONTENT, &size);
}

void Rest(World& world, Place& place) {
    const Lent<IOleObject> object(world, place);
    object->SetHostNames(L"host", world.Draw.OneIn(2) ? nullptr : L"document");
    object->SetMoniker(OLEWHICHMK_OBJREL, nullptr);
    ComPtr<IMoniker> moniker;
    object->GetMoniker(0, 0, moniker.Put());
    object->InitFromData(nullptr, TRUE, 0);
    ComPtr<IDataObject> data;
    object->GetClipboardData(0, data.Put());
    ComPtr<IEnumOLEVERB> verbs;
    world.Log.Result(object->EnumVerbs(verbs.Put()));
    OLEVERB verb = {};
    while (verbs && verbs->Next(1, &verb, nullptr) == S_OK) CoTaskMemFree(verb.lpszVerbName);
    object->Update();
    object->IsUpToDate();
    CLSID id;
    object->GetUserClassID(world.Draw.OneIn(4) ? nullptr : &id);
    LPOLESTR type = nullptr;
    object->GetUserType(static_cast<DWORD>(world.Draw.Below(5)), world.Draw.OneIn(4) ? nullptr : &type);
    CoTaskMemFree(type);
    DWORD status = 0;
    object->GetMiscStatus(static_cast<DWORD>(world.Draw.Below(9)), &status);
    object->SetColorScheme(nullptr);
}

void Advise(World& world, Place& place) {
    const Lent<IOleObject> object(world, place);
    DWORD cookie = 0;
    world.Log.Result(object->Advise(MakeCom<RandomAdviseSink>(world).Get(), &cookie));
    ComPtr<IEnumSTATDATA> all;
    object->EnumAdvise(all.Put());
    if (world.Draw.OneIn(2))
        object->Unadvise(world.Draw.OneIn(3) ? static_cast<DWORD>(world.Draw.Number()) : cookie);
}

void InPlace(World& world, Place& place) {
    const Lent<IOleInPlaceObject> object(world, place);
    const RECT rect = RandomRect(world), clip = RandomRect(world);
    HWND window = nullptr;
    switch (world.Draw.Below(8)) {
    case 0: world.Log.Result(object->InPlaceDeactivate()); return;
    case 1: world.Log.Result(object->UIDeactivate()); return;
    case 2: object->ReactivateAndUndo(), object->ContextSensitiveHelp(TRUE); return;
    case 3: world.Log.Result(object->GetWindow(world.Draw.OneIn(3) ? nullptr : &window)); return;
    case 4: world.Log.Result(object->SetObjectRects(nullptr, &clip)); return;
    default: world.Log.Result(object->SetObjectRects(&rect, world.Draw.OneIn(3) ? nullptr : &clip)); return;
    }
}

void ActiveObject(World& world, Place& place) {
    static constexpr WPARAM Keys[] = {VK_LEFT, VK_RIGHT, VK_TAB, VK_RETURN, VK_ESCAPE, 'A'};
    const Lent<IOleInPlaceActiveObject> object(world, place);
    MSG message = {};
    message.hwnd = world.Draw.OneIn(4) ? nullptr : WindowOf(place);
    message.message = world.Draw.OneIn(4) ? WM_CHAR : WM_KEYDOWN;
    message.wParam = world.Draw.Of(Keys);
    world.Log.Result(object->TranslateAccelerator(world.Draw.OneIn(20) ? nullptr : &message));
    const RECT border = RandomRect(world);
    const Lent<IOleInPlaceActiveObject> again(world, place);
    if (!again) return;
    again->OnFrameWindowActivate(world.Draw.OneIn(2));
    again->OnDocWindowActivate(world.Draw.OneIn(2));
    again->ResizeBorder(&border, MakeCom<RandomFrame>(world).Get(), TRUE);
    again->EnableModeless(world.Draw.OneIn(2));
}

void OleControl(World& world, Place& place) {
    static constexpr DISPID Ambients[] = {DISPID_UNKNOWN, DISPID_AMBIENT_USERMODE, DISPID_AMBIENT_UIDEAD,
                                          DISPID_AMBIENT_FONT, 0};
    const Lent<IOleControl> object(world, place);
    CONTROLINFO info = {};
    MSG message = {};
    switch (world.Draw.Below(4)) {
    case 0: world.Log.Result(object->GetControlInfo(world.Draw.OneIn(3) ? nullptr : &info)); return;
    case 1: world.Log.Result(object->OnMnemonic(&message)); return;
    case 2: world.Log.Result(object->OnAmbientPropertyChange(world.Draw.Of(Ambients))); return;
    default: world.Log.Result(object->FreezeEvents(world.Draw.OneIn(3))); return;
    }
}

void QuickActivate(World& world, Place& place) {
    const Lent<IQuickActivate> object(world, place);
    place.Site = MakeCom<RandomSite>(world, place.Number).As<IOleClientSite>();
    const auto events = MakeCom<RandomEventSink>(world, place.IsTrue);
    const auto properties = MakeCom<RandomPropertySink>(world);
    const auto advise = MakeCom<RandomAdviseSink>(world);
    const auto site = place.Site;
    QACONTAINER container = {};
    container.cbSize = sizeof container;
    container.pClientSite = site.Get();
    if (world.Draw.OneIn(2)) container.pAdviseSink = advise.Get();
    if (world.Draw.OneIn(2)) container.pPropertyNotifySink = properties.Get();
    if (world.Draw.OneIn(2)) container.pUnkEventSink = events.Get();
    QACONTROL control = {};
    control.cbSize = sizeof control;
    world.Log.Result(object->QuickActivate(world.Draw.OneIn(20) ? nullptr : &container,
                                           world.Draw.OneIn(20) ? nullptr : &control));
}

void Connect(World& world, Place& place) {
    const Lent<IConnectionPointContainer> object(world, place);
    const bool events = world.Draw.OneIn(2);
    const bool truthful = place.IsTrue && !world.Draw.OneIn(6);
    const IID point = events ? world.Module().EventsId() : IID_IPropertyNotifySink;
    const ComPtr<IUnknown> sink = events ? MakeCom<RandomEventSink>(world, truthful).As<IUnknown>()
                                         : MakeCom<RandomPropertySink>(world).As<IUnknown>();
    ComPtr<IConnectionPoint> found;
    Place::Connection connection = {point, 0};
    if (FAILED(object->FindConnectionPoint(point, found.Put()))) return;
    if (place.Connections.size() > 6 || FAILED(found->Advise(sink.Get(), &connection.Cookie))) return;
    place.Connections.push_back(connection);
    if (events && !truthful) place.IsTrue = false;
}

void Disconnect(World& world, Place& place) {
    const Lent<IConnectionPointContainer> object(world, place);
    ComPtr<IEnumConnectionPoints> points;
    object->EnumConnectionPoints(points.Put());
    ComPtr<IConnectionPoint> each;
    while (points && points->Next(1, each.Put(), nullptr) == S_OK) {
        ComPtr<IEnumConnections> connections;
        each->EnumConnections(connections.Put());
        CONNECTDATA data = {};
        while (connections && connections->Next(1, &data, nullptr) == S_OK) data.pUnk->Release();
        each->Unadvise(static_cast<DWORD>(world.Draw.Number()));
    }
    if (place.Connections.empty()) return;
    const Place::Connection last = place.Connections.back();
    place.Connections.pop_back();
    ComPtr<IConnectionPoint> found;
    if (SUCCEEDED(object->FindConnectionPoint(last.Point, found.Put())))
        world.Log.Result(found->Unadvise(last.Cookie));
}

void VanishSite(World&, Place& place) {
    if (place.Site) static_cast<RandomSite*>(place.Site.Get())->Vanish();
}

constexpr Action All[] = {{"site", 3, SetSite},
                          {"verb", 12, Verb},
                          {"properties", 1, Properties},
                          {"close", 1, Close},
                          {"extent", 3, Extent},
                          {"rest of the object", 1, Rest},
                          {"advise", 1, Advise},
                          {"in place", 6, InPlace},
                          {"active object", 4, ActiveObject},
                          {"control", 2, OleControl},
                          {"activate quickly", 2, QuickActivate},
                          {"connect", 4, Connect},
                          {"disconnect", 2, Disconnect},
                          {"site vanishes", 1, VanishSite}};

} // namespace

Actions ObjectActions() noexcept { return All; }

} // namespace vantik
