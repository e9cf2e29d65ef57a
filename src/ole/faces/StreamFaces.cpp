#include "ole/faces/StreamFaces.h"

#include "ole/com/Identifiers.h"
#include "ole/control/Control.h"
#include "ole/persist/StreamFormat.h"

namespace vantik {

namespace {

constexpr wchar_t StreamName[] = L"VantikFrameTab";

HRESULT OwnClass(CLSID* classId) noexcept {
    if (!classId) return E_POINTER;
    *classId = CLSID_VantikFrameTab;
    return S_OK;
}

void LoadFrom(Control& control, IStream& stream) {
    StreamReader reader(stream);
    control.Document.Load(reader);
}

void SaveTo(Control& control, IStream& stream, bool clearDirty) {
    StreamWriter writer;
    control.Document.Save(writer, false);
    writer.Flush(stream);
    if (clearDirty) control.Document.MarkClean(); // only now it is saved
}

} // namespace

StreamInitFace::StreamInitFace(Control& control) noexcept : Face(control.Controlling), control_(control) {}

STDMETHODIMP StreamInitFace::GetClassID(CLSID* classId) noexcept { return OwnClass(classId); }
STDMETHODIMP StreamInitFace::IsDirty() noexcept { return control_.Document.IsDirty() ? S_OK : S_FALSE; }

STDMETHODIMP StreamInitFace::Load(IStream* stream) noexcept {
    return GuardAndTell([&] { LoadFrom(control_, Required(stream)); });
}

STDMETHODIMP StreamInitFace::Save(IStream* stream, BOOL clearDirty) noexcept {
    return GuardAndTell([&] { SaveTo(control_, Required(stream), clearDirty); });
}

STDMETHODIMP StreamInitFace::GetSizeMax(ULARGE_INTEGER* size) noexcept {
    return GuardAndTell([&] {
        StreamWriter writer;
        control_.Document.Save(writer, false);
        Required(size).QuadPart = writer.Size();
    });
}

STDMETHODIMP StreamInitFace::InitNew() noexcept {
    return GuardAndTell([&] { control_.Document.InitNew(); });
}

StorageFace::StorageFace(Control& control) noexcept : Face(control.Controlling), control_(control) {}

STDMETHODIMP StorageFace::GetClassID(CLSID* classId) noexcept { return OwnClass(classId); }
STDMETHODIMP StorageFace::IsDirty() noexcept { return control_.Document.IsDirty() ? S_OK : S_FALSE; }

// The storage is used during the calls that bring one only, so that there is none to keep the hands off.
STDMETHODIMP StorageFace::InitNew(IStorage* storage) noexcept {
    return GuardAndTell([&] {
        Required(storage);
        control_.Document.InitNew();
    });
}

STDMETHODIMP StorageFace::Load(IStorage* storage) noexcept {
    return GuardAndTell([&] {
        ComPtr<IStream> stream;
        Check(Required(storage).OpenStream(StreamName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0,
                                           stream.Put()));
        LoadFrom(control_, *stream.Get());
    });
}

// A storage that is not the one of the control's may be a mere copy: whether it is, the host says on completion.
STDMETHODIMP StorageFace::Save(IStorage* storage, BOOL sameAsLoad) noexcept {
    return GuardAndTell([&] {
        ComPtr<IStream> stream;
        Check(Required(storage).CreateStream(StreamName, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0,
                                             0, stream.Put()));
        SaveTo(control_, *stream.Get(), sameAsLoad);
        saved_ = true;
    });
}

STDMETHODIMP StorageFace::SaveCompleted(IStorage* storage) noexcept {
    return GuardAndTell([&] {
        if (!std::exchange(saved_, false)) return;
        if (storage) control_.Document.MarkClean();
        control_.Advise.Saved();
    });
}
STDMETHODIMP StorageFace::HandsOffStorage() noexcept { return S_OK; }

} // namespace vantik
