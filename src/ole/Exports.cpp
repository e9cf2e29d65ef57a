// The functions that the module exports.
#include "ole/ClassFactory.h"
#include "ole/ErrorInfo.h"
#include "ole/Identifiers.h"
#include "ole/Module.h"
#include "ole/Registration.h"
#include "ole/WindowClass.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
    // A class that stays behind would lead to a window procedure that is gone.
    if (reason == DLL_PROCESS_DETACH) vantik::UnregisterControlWindowClass();
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
