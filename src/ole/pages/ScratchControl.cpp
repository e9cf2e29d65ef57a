#include "ole/pages/ScratchControl.h"

#include "ole/com/Identifiers.h"
#include "ole/host/Extent.h"

namespace vantik {

namespace {

ComPtr<IPersistStreamInit> StateOf(IUnknown* object) noexcept {
    auto state = QueryFor<IPersistStreamInit>(object);
    CLSID id = CLSID_NULL;
    const bool isControl = state && SUCCEEDED(state->GetClassID(&id)) && id == CLSID_VantikFrameTab;
    return isControl ? state : nullptr;
}

// What cannot be loaded has its defaults, as everywhere.
bool CopyState(IPersistStreamInit& from, IUnknown* to) noexcept {
    ComPtr<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()))) return false;
    if (FAILED(from.Save(stream.Get(), FALSE))) return false;
    if (FAILED(stream->Seek({}, STREAM_SEEK_SET, nullptr))) return false;
    const auto target = QueryFor<IPersistStreamInit>(to);
    if (target) target->Load(stream.Get());
    return target.Get();
}

} // namespace

ScratchControl::ScratchControl(ComPtr<IUnknown> control)
    : control_(std::move(control)), values_([&] {
          IUnknown* const objects[] = {control_.Get()};
          return EditedObjects(objects);
      }()) {}

// A control without tabs would show nothing of what is edited.
std::optional<ScratchControl> ScratchControl::CopyOf(IUnknown* object) {
    const auto state = StateOf(object);
    if (!state) return std::nullopt;
    ScratchControl copy = New();
    if (!CopyState(*state.Get(), copy.control_.Get())) return std::nullopt;
    const Assignment tabs[] = {{L"TabCount", u"3"}, {L"ActiveTab", u"0"}};
    if (copy.values_.Value(L"TabCount") == u"0") copy.Assign(tabs);
    return copy;
}

void ScratchControl::Draw(HDC dc, const RECT& place) const noexcept {
    SIZEL size = Resolution::OfScreen().ToHiMetric({place.right - place.left, place.bottom - place.top});
    if (const auto object = QueryFor<IOleObject>(control_.Get())) object->SetExtent(DVASPECT_CONTENT, &size);
    const RECTL bounds = {place.left, place.top, place.right, place.bottom};
    if (const auto view = QueryFor<IViewObject>(control_.Get()))
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0);
}

} // namespace vantik
