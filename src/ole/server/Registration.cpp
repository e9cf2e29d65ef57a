#include "ole/server/Registration.h"

#include <ProductVersion.h>
#include <comcat.h>

#include "base/Text.h"
#include "ole/com/ErrorInfo.h"
#include "ole/com/Identifiers.h"
#include "ole/com/Module.h"
#include "ole/com/RegistryKey.h"
#include "ole/faces/Verbs.h"
#include "ole/pages/Pages.h"

namespace vantik {

namespace {

// Other controls stand on this one. The platform's headers have no name for the category.
constexpr CATID SimpleFrameControl = {
    0x157083E0, 0x2368, 0x11CF, {0x87, 0xB9, 0x00, 0xAA, 0x00, 0x6C, 0x81, 0x66}};

// What hosts can expect of the control. None of these is required of the host.
const CATID Categories[] = {
    CATID_Control,           SimpleFrameControl,          CATID_Programmable, CATID_PersistsToStreamInit,
    CATID_PersistsToStorage, CATID_PersistsToPropertyBag,
};

std::wstring TextOf(REFGUID guid) {
    wchar_t text[40] = {};
    StringFromGUID2(guid, text, 40);
    return text;
}

std::wstring TextOf(std::int32_t number) {
    const std::u16string text = DecimalText(number);
    return AsWide(text);
}

std::wstring ModuleFile() {
    const std::u16string path = ModulePath();
    return AsWide(path);
}

std::wstring KeyOf(REFCLSID classId) { return L"CLSID\\" + TextOf(classId); }

std::wstring ClassKey() { return KeyOf(CLSID_VantikFrameTab); }

std::wstring LibraryVersion() { return TextOf(PRODUCT_MAJOR) + L"." + TextOf(PRODUCT_MINOR); }

void RegisterProgId() {
    const RegistryKey progId(HKEY_CLASSES_ROOT, ProgId);
    progId.Set(ControlTitle);
    progId.Add(L"CLSID", TextOf(CLSID_VantikFrameTab));
}

void RegisterServer(REFCLSID classId) {
    const RegistryKey server(HKEY_CLASSES_ROOT, KeyOf(classId) + L"\\InprocServer32");
    server.Set(ModuleFile());
    server.Set(L"ThreadingModel", L"Apartment");
}

void RegisterNames(const RegistryKey& control) {
    control.Add(L"ProgID", ProgId);
    control.Add(L"TypeLib", TextOf(LIBID_VantikFrameTabProject));
    control.Add(L"Version", LibraryVersion());
}

void RegisterClass() {
    const RegistryKey control(HKEY_CLASSES_ROOT, ClassKey());
    control.Set(ControlTitle);
    RegisterServer(CLSID_VantikFrameTab);
    RegisterNames(control);
    control.Add(L"Control");
    control.Add(L"ToolboxBitmap32", ModuleFile() + L", " + TextOf(ToolboxBitmapId));
    control.Add(L"MiscStatus", L"0");
    control.Add(L"MiscStatus\\1", TextOf(MiscStatus)); // 1: the content aspect
    for (const Verb& verb : Verbs())                   // 0: no flags of its menu item
        control.Add(L"Verb\\" + TextOf(verb.Number),
                    verb.Name + (L",0," + TextOf(static_cast<std::int32_t>(verb.Attributes))));
    for (const CATID& category : Categories) control.Add(L"Implemented Categories\\" + TextOf(category));
}

void RegisterPages() {
    for (const PageClass& page : PageClasses()) {
        RegistryKey(HKEY_CLASSES_ROOT, KeyOf(page.Id)).Set(page.Title);
        RegisterServer(page.Id);
    }
}

void RegisterLibrary() {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(ModuleFile().c_str(), REGKIND_REGISTER, library.Put()));
}

// Systems that run programs of both bitnesses keep their classes apart, but not the names that lead to them.
bool OtherBitnessIsRegistered() {
    return RegistryKey::Exists(HKEY_CLASSES_ROOT, ClassKey(),
                               sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY);
}

// Where the library of this bitness is entered, beside that of the other one.
std::wstring LibraryKey() {
    return L"TypeLib\\" + TextOf(LIBID_VantikFrameTabProject) + L"\\" + LibraryVersion() + L"\\0\\" +
           (sizeof(void*) == 8 ? L"win64" : L"win32");
}

// The system takes the entries of the interfaces away with the library, for both bitnesses: the other one needs them still.
HRESULT UnregisterLibrary() {
    if (!RegistryKey::Exists(HKEY_CLASSES_ROOT, LibraryKey())) return S_OK;
    if (!OtherBitnessIsRegistered())
        return UnRegisterTypeLib(LIBID_VantikFrameTabProject, PRODUCT_MAJOR, PRODUCT_MINOR, LOCALE_NEUTRAL,
                                 sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    RegistryKey::Delete(HKEY_CLASSES_ROOT, LibraryKey());
    return S_OK;
}

} // namespace

HRESULT RegisterControl() {
    RegisterProgId();
    RegisterClass();
    RegisterPages();
    RegisterLibrary();
    return S_OK;
}

HRESULT UnregisterControl() {
    for (const PageClass& page : PageClasses()) RegistryKey::Delete(HKEY_CLASSES_ROOT, KeyOf(page.Id));
    RegistryKey::Delete(HKEY_CLASSES_ROOT, ClassKey());
    if (!OtherBitnessIsRegistered()) RegistryKey::Delete(HKEY_CLASSES_ROOT, ProgId);
    return UnregisterLibrary();
}

} // namespace vantik
