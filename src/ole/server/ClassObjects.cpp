#include "ole/server/ClassObjects.h"

#include "ole/com/ClassFactory.h"
#include "ole/com/Identifiers.h"
#include "ole/pages/Pages.h"
#include "ole/server/ControlObject.h"

namespace vantik {

namespace {

HRESULT MakeControl(IUnknown* outer, REFIID iid, void** object) {
    return ControlObject::Create(outer, iid, object);
}

Maker MakerOf(REFCLSID classId) noexcept {
    for (const PageClass& page : PageClasses())
        if (page.Id == classId) return page.Make;
    return classId == CLSID_VantikFrameTab ? MakeControl : nullptr;
}

} // namespace

HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    const Maker maker = MakerOf(classId);
    return maker ? MakeClassFactory(maker, iid, object) : CLASS_E_CLASSNOTAVAILABLE;
}

} // namespace vantik
