// The functions that the module exports.
#include "about/frmAbout.h"
#include "ole/ClassFactory.h"
#include "ole/ErrorInfo.h"
#include "ole/Identifiers.h"
#include "ole/Module.h"
#include "ole/Registration.h"
#include "ole/WindowClass.h"

namespace {

// A class that stays behind would lead to a window procedure that is gone.
void UnregisterWindowClasses() noexcept {
    vantik::UnregisterControlWindowClass();
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
