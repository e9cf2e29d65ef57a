// The functions that the module exports.
#include "about/frmAbout.h"
#include "ole/com/ErrorInfo.h"
#include "ole/com/Identifiers.h"
#include "ole/com/Module.h"
#include "ole/server/ClassObjects.h"
#include "ole/server/Registration.h"
#include "ole/window/RowStop.h"
#include "ole/window/WindowClass.h"

namespace {

// A class that stays behind would lead to a window procedure that is gone.
void UnregisterWindowClasses() noexcept {
    vantik::UnregisterControlWindowClass();
    vantik::UnregisterRowStopClass();
    vantik::UnregisterAboutWindowClass();
}

} // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
    if (reason == DLL_PROCESS_DETACH) UnregisterWindowClasses();
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return vantik::Guarded([&] { return vantik::GetClassObject(classId, iid, object); });
}

STDAPI DllCanUnloadNow() { return vantik::ModuleIsLocked() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
    return vantik::Guarded([] { return vantik::RegisterControl(); });
}

STDAPI DllUnregisterServer() {
    return vantik::Guarded([] { return vantik::UnregisterControl(); });
}
