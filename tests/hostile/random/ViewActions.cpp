// Calls of the interfaces that show the control, and that tell of it.
#include "hostile/random/Actions.h"
#include "hostile/random/RandomSinks.h"
#include "hostile/random/RandomSite.h"

namespace vantik {

namespace {

DWORD Aspect(World& world) {
    return world.Draw.OneIn(6) ? static_cast<DWORD>(world.Draw.Number()) : DWORD{DVASPECT_CONTENT};
}

BOOL CALLBACK GoOn(ULONG_PTR) { return FALSE; }

void Draw(World& world, Place& place) {
    const Lent<IViewObjectEx> view(world, place);
    const RECT rect = RandomRect(world);
    const RECTL bounds = {rect.left, rect.top, rect.right, rect.bottom};
    const HDC dc = world.Draw.OneIn(4) ? CreateMetaFileW(nullptr) : CreateCompatibleDC(nullptr);
    const bool isFile = GetObjectType(dc) == OBJ_METADC;
    world.Log.Note("to " + std::to_string(rect.left) + ' ' + std::to_string(rect.top) + ' ' +
                   std::to_string(rect.right) + ' ' + std::to_string(rect.bottom));
    world.Log.Result(view->Draw(Aspect(world), -1, nullptr, nullptr, nullptr,
                                world.Draw.OneIn(10) ? nullptr : dc, world.Draw.OneIn(10) ? nullptr : &bounds,
                                nullptr, GoOn, 0));
    if (isFile)
        DeleteMetaFile(CloseMetaFile(dc));
    else
        DeleteDC(dc);
}

void View(World& world, Place& place) {
    const Lent<IViewObjectEx> view(world, place);
    LOGPALETTE* colours = nullptr;
    view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &colours);
    DWORD number = 0;
    view->Freeze(DVASPECT_CONTENT, -1, nullptr, &number);
    view->Unfreeze(number);
    SIZEL size = {};
    world.Log.Result(view->GetExtent(Aspect(world), -1, nullptr, &size));
    RECTL rectl = {};
    view->GetRect(Aspect(world), &rectl);
    view->GetViewStatus(&number);
    const RECT rect = RandomRect(world), other = RandomRect(world);
    world.Log.Result(view->QueryHitPoint(Aspect(world), &rect, {world.Draw.Number(), 5}, 0, &number));
    world.Log.Result(view->QueryHitRect(Aspect(world), &rect, &other, 0, &number));
    DVEXTENTINFO info = {sizeof info, static_cast<DWORD>(world.Draw.Below(2)), {100, 100}};
    view->GetNaturalExtent(Aspect(world), -1, nullptr, nullptr, &info, &size);
}

void AdviseView(World& world, Place& place) {
    const Lent<IViewObjectEx> view(world, place);
    const auto sink = world.Draw.OneIn(3) ? nullptr : MakeCom<RandomAdviseSink>(world);
    static constexpr DWORD Flags[] = {0, ADVF_PRIMEFIRST, ADVF_ONLYONCE, ADVF_PRIMEFIRST | ADVF_ONLYONCE};
    world.Log.Result(view->SetAdvise(DVASPECT_CONTENT, world.Draw.Of(Flags), sink.Get()));
    const Lent<IViewObjectEx> again(world, place);
    ComPtr<IAdviseSink> answer;
    if (again) again->GetAdvise(nullptr, nullptr, answer.Put());
}

void Data(World& world, Place& place) {
    const Lent<IDataObject> data(world, place); // only what comes last calls anybody
    FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    if (world.Draw.OneIn(4)) format.cfFormat = static_cast<CLIPFORMAT>(world.Draw.Number());
    if (world.Draw.OneIn(4)) format.tymed = static_cast<DWORD>(world.Draw.Number());
    if (world.Draw.OneIn(8)) format.lindex = world.Draw.Number();
    STGMEDIUM medium = {};
    world.Log.Result(data->QueryGetData(&format));
    const HRESULT got = data->GetData(&format, &medium);
    world.Log.Result(got);
    if (SUCCEEDED(got)) ReleaseStgMedium(&medium);
    const Lent<IDataObject> again(world, place);
    if (!again) return;
    medium = {};
    again->GetDataHere(&format, &medium);
    FORMATETC canonical = {};
    again->GetCanonicalFormatEtc(&format, &canonical);
    again->SetData(&format, &medium, FALSE);
    ComPtr<IEnumFORMATETC> formats;
    again->EnumFormatEtc(static_cast<DWORD>(world.Draw.Below(3)), formats.Put());
    ULONG fetched = 0;
    if (formats) formats->Next(1, &canonical, &fetched);
}

void AdviseData(World& world, Place& place) {
    const Lent<IDataObject> data(world, place);
    FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    DWORD cookie = 0;
    const DWORD flags =
        ADVF_NODATA; // the holder of some systems never lets go of data that it got for a sink
    world.Log.Result(data->DAdvise(&format, world.Draw.OneIn(2) ? flags | ADVF_PRIMEFIRST : flags,
                                   MakeCom<RandomAdviseSink>(world).Get(), &cookie));
    const Lent<IDataObject> again(world, place);
    if (!again) return;
    ComPtr<IEnumSTATDATA> all;
    again->EnumDAdvise(all.Put());
    again->DUnadvise(world.Draw.OneIn(3) ? static_cast<DWORD>(world.Draw.Number()) : cookie);
}

void Browse(World& world, Place& place) {
    const auto object = place.Control.As<IPerPropertyBrowsing>();
    const DISPID id = world.Draw.OneIn(5) ? world.Draw.Number() : world.Draw.Between(1, 37);
    BSTR text = nullptr;
    world.Log.Result(object->GetDisplayString(id, &text));
    SysFreeString(text);
    CLSID page;
    object->MapPropertyToPage(id, world.Draw.OneIn(10) ? nullptr : &page);
    CALPOLESTR texts = {};
    CADWORD cookies = {};
    world.Log.Result(object->GetPredefinedStrings(id, &texts, world.Draw.OneIn(10) ? nullptr : &cookies));
    for (ULONG i = 0; i < texts.cElems; ++i) CoTaskMemFree(texts.pElems[i]);
    CoTaskMemFree(texts.pElems);
    CoTaskMemFree(cookies.pElems);
    VARIANT value;
    VariantInit(&value);
    object->GetPredefinedValue(id, static_cast<DWORD>(world.Draw.Number()), &value);
    VariantClear(&value);
}

void Describe(World& world, Place& place) {
    const ComPtr<IUnknown> object = place.Control;
    if (const auto info = object.As<IProvideClassInfo2>()) {
        ComPtr<ITypeInfo> type;
        info->GetClassInfo(type.Put());
        GUID id;
        info->GetGUID(static_cast<DWORD>(world.Draw.Below(3)), &id);
    }
    if (const auto errors = object.As<ISupportErrorInfo>())
        world.Log.Result(
            errors->InterfaceSupportsErrorInfo(world.Draw.OneIn(2) ? IID_IDispatch : IID_IMarshal));
    if (const auto pages = object.As<ISpecifyPropertyPages>()) {
        CAUUID ids = {};
        pages->GetPages(&ids);
        CoTaskMemFree(ids.pElems);
    }
    ComPtr<IUnknown> none;
    const GUID any = {static_cast<unsigned long>(world.Draw.Next()), 1, 2, {}};
    object->QueryInterface(any, none.PutVoid());
    object->QueryInterface(any, nullptr);
}

constexpr Action All[] = {{"draw", 4, Draw},
                          {"view", 1, View},
                          {"view's sink", 2, AdviseView},
                          {"data", 2, Data},
                          {"data's sink", 1, AdviseData},
                          {"browse", 2, Browse},
                          {"describe", 1, Describe}};

} // namespace

Actions ViewActions() noexcept { return All; }

} // namespace vantik
