// Registration and its undoing, and use without any.
#include <doctest/doctest.h>

#include <comcat.h>
#include <objsafe.h>

#include <filesystem>

#include "ole/LooseControl.h"

namespace vantik {

namespace {

constexpr wchar_t ProgId[] = L"VantikFrameTabProject.VantikFrameTab";
constexpr wchar_t ClassKey[] = L"CLSID\\{D114C80B-464C-4291-9BC1-FB1295823C1E}";
constexpr const wchar_t* PageKeys[] = {L"CLSID\\{2A268946-78E0-4DFB-BF3D-C9DB8C26F55B}",
                                       L"CLSID\\{8B514BAB-4522-4613-9DD6-5C736147A33D}"};
constexpr wchar_t SharedLibraryKey[] = L"TypeLib\\{9E5F043C-D27A-428A-9C0F-FA9A67ADF68E}";
constexpr wchar_t LibraryKey[] = L"TypeLib\\{9E5F043C-D27A-428A-9C0F-FA9A67ADF68E}\\1.0\\0";

std::wstring ValueOf(const std::wstring& key, const wchar_t* name = nullptr) {
    wchar_t text[512] = {};
    DWORD size = sizeof text;
    if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size)) return L"?";
    return text;
}

bool Exists(const std::wstring& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &opened)) return false;
    RegCloseKey(opened);
    return true;
}

class Server {
public:
    Server() : module_(LoadLibraryW(FindBuiltControl().c_str())) { REQUIRE(module_); }
    ~Server() { FreeLibrary(module_); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    HRESULT Call(const char* function) const {
        return reinterpret_cast<HRESULT(WINAPI*)()>(GetProcAddress(module_, function))();
    }

private:
    HMODULE module_;
};

const wchar_t* const LibraryPlatform = sizeof(void*) == 8 ? L"\\win64" : L"\\win32";

// The system's own manager of categories sees the class in each, and asks nothing of the host.
void CheckCategories() {
    ComPtr<ICatInformation> information;
    REQUIRE(CoCreateInstance(CLSID_StdComponentCategoriesMgr, nullptr, CLSCTX_INPROC_SERVER,
                             IID_ICatInformation, information.PutVoid()) == S_OK);
    const auto isOf = [&](const CATID& category) {
        return information->IsClassOfCategories(CLSID_VantikFrameTab, 1, &category, 0, nullptr) == S_OK;
    };
    constexpr CATID simpleFrame = {
        0x157083E0, 0x2368, 0x11CF, {0x87, 0xB9, 0x00, 0xAA, 0x00, 0x6C, 0x81, 0x66}};
    CHECK(isOf(CATID_Control));
    CHECK(isOf(simpleFrame));
    CHECK(isOf(CATID_Programmable));
    CHECK(isOf(CATID_PersistsToStreamInit));
    CHECK(isOf(CATID_PersistsToStorage));
    CHECK(isOf(CATID_PersistsToPropertyBag));
    CHECK(!isOf(CATID_PersistsToStream));
    CHECK(!isOf(CATID_Insertable));
    CHECK(!isOf(CATID_SafeForScripting)); // it reads files
    CHECK(!isOf(CATID_SafeForInitializing));
}

// The first two of the control's pages are its own: they come from the module by their classes, as frames make them.
void CheckPages(IDispatch* control) {
    const auto specify = QueryFor<ISpecifyPropertyPages>(control);
    CAUUID pages = {};
    REQUIRE(specify->GetPages(&pages) == S_OK);
    REQUIRE(pages.cElems == 5);
    for (ULONG i = 0; i < 2; ++i) {
        ComPtr<IPropertyPage2> page;
        CHECK(CoCreateInstance(pages.pElems[i], nullptr, CLSCTX_INPROC_SERVER, IID_IPropertyPage2,
                               page.PutVoid()) == S_OK);
    }
    CHECK(pages.pElems[2] == CLSID_CColorPropPage);
    CHECK(pages.pElems[3] == CLSID_CFontPropPage);
    CHECK(pages.pElems[4] == CLSID_CPicturePropPage);
    CoTaskMemFree(pages.pElems);
    CHECK(specify->GetPages(nullptr) == E_POINTER);
}

std::wstring ClassValue(const wchar_t* below) { return ValueOf(std::wstring(ClassKey) + below); }

} // namespace

TEST_SUITE_BEGIN("registering");

TEST_CASE("Registration enters all that hosts look for, and unregistration takes it away again") {
    const OleApartment apartment;
    const Server server;
    const std::wstring file = FindBuiltControl();
    REQUIRE(server.Call("DllRegisterServer") == S_OK);
    CHECK(ValueOf(std::wstring(ProgId) + L"\\CLSID") == L"{D114C80B-464C-4291-9BC1-FB1295823C1E}");
    CHECK(ClassValue(L"\\InprocServer32") == file);
    CHECK(ValueOf(std::wstring(ClassKey) + L"\\InprocServer32", L"ThreadingModel") == L"Apartment");
    CHECK(ClassValue(L"\\ProgID") == ProgId);
    CHECK(ClassValue(L"\\TypeLib") == L"{9E5F043C-D27A-428A-9C0F-FA9A67ADF68E}");
    CHECK(ClassValue(L"\\Version") == L"1.0");
    CHECK(ClassValue(L"\\ToolboxBitmap32") == file + L", 101");
    CHECK(ClassValue(L"\\MiscStatus\\1") ==
          std::to_wstring(OLEMISC_SIMPLEFRAME | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_INSIDEOUT |
                          OLEMISC_SETCLIENTSITEFIRST | OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE));
    CHECK(ClassValue(L"\\Verb\\0") == L"&Edit,0,3");
    CHECK(ClassValue(L"\\Verb\\1") == L"&Properties...,0,2");
    CHECK(ClassValue(L"\\Verb\\2") == L"&Next tab,0,2");
    CHECK(ClassValue(L"\\Verb\\3") == L"P&revious tab,0,2");
    CHECK(ClassValue(L"\\Verb\\4") == L"A&dd tab,0,2");
    CHECK(ClassValue(L"\\Verb\\5") == L"&About...,0,3");
    for (const wchar_t* key : PageKeys) {
        CHECK(ValueOf(std::wstring(key) + L"\\InprocServer32") == file);
        CHECK(ValueOf(std::wstring(key) + L"\\InprocServer32", L"ThreadingModel") == L"Apartment");
    }
    CHECK(Exists(std::wstring(ClassKey) + L"\\Control"));
    CHECK(
        !Exists(std::wstring(ClassKey) + L"\\Insertable")); // documents without controls are no place for it
    CHECK(!Exists(std::wstring(ClassKey) + L"\\Required Categories"));
    CheckCategories();
    CHECK(ValueOf(std::wstring(LibraryKey) + LibraryPlatform)
              .ends_with(file));                       // some systems put \\?\ in front
    REQUIRE(server.Call("DllRegisterServer") == S_OK); // once more does no harm

    {
        CLSID id = CLSID_NULL;
        REQUIRE(CLSIDFromProgID(ProgId, &id) == S_OK);
        ComPtr<IDispatch> created;
        REQUIRE(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, created.PutVoid()) ==
                S_OK);
        CHECK(Get(*created.Get(), L"TabCount").Number() == 0);
        CheckPages(created.Get());
    }
    CoFreeUnusedLibrariesEx(0, 0);

    REQUIRE(server.Call("DllUnregisterServer") == S_OK);
    CHECK(!Exists(ClassKey));
    for (const wchar_t* key : PageKeys) CHECK(!Exists(key));
    CHECK(!Exists(ProgId));
    CHECK(!Exists(std::wstring(LibraryKey) + LibraryPlatform));
    CHECK(server.Call("DllUnregisterServer") == S_OK); // there is nothing to be taken away any more
}

TEST_CASE("The program's name stays while the control of the other bitness is registered") {
    const OleApartment apartment;
    const Server server;
    const REGSAM other = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY key = nullptr;
    REQUIRE(server.Call("DllRegisterServer") == S_OK);
    REQUIRE(RegCreateKeyExW(HKEY_CLASSES_ROOT, ClassKey, 0, nullptr, 0, KEY_WRITE | other, nullptr, &key,
                            nullptr) == ERROR_SUCCESS);
    RegCloseKey(key);
    CHECK(server.Call("DllUnregisterServer") == S_OK);
    CHECK(Exists(ProgId));
    REQUIRE(RegDeleteKeyExW(HKEY_CLASSES_ROOT, ClassKey, other, 0) == ERROR_SUCCESS);
    CHECK(server.Call("DllUnregisterServer") == S_OK);
    CHECK(!Exists(ProgId));

    // The library's entries had been left to the other one.
    CHECK(Exists(SharedLibraryKey));
    REQUIRE(server.Call("DllRegisterServer") == S_OK);
    CHECK(server.Call("DllUnregisterServer") == S_OK);
    CHECK(!Exists(SharedLibraryKey));
}

TEST_SUITE_END();

TEST_CASE("The bitmap for toolboxes is in the module under the registered number") {
    const HMODULE module = LoadLibraryExW(FindBuiltControl().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    REQUIRE(module);
    const auto bitmap = static_cast<HBITMAP>(
        LoadImageW(module, MAKEINTRESOURCEW(101), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    BITMAP info = {};
    CHECK(GetObjectW(bitmap, sizeof info, &info) != 0);
    CHECK(info.bmWidth == 16);
    CHECK((info.bmHeight == 15 || info.bmHeight == 16));
    DeleteObject(bitmap);
    FreeLibrary(module);
}

TEST_CASE("The module says its version") {
    const std::wstring file = FindBuiltControl();
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeW(file.c_str(), &unused);
    REQUIRE(size > 0);
    std::vector<std::byte> block(size);
    REQUIRE(GetFileVersionInfoW(file.c_str(), 0, size, block.data()));
    VS_FIXEDFILEINFO* version = nullptr;
    UINT length = 0;
    REQUIRE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&version), &length));
    CHECK(version->dwFileVersionMS == MAKELONG(0, 1));
    void* registers = nullptr;
    CHECK(VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\OLESelfRegister", &registers, &length));
}

TEST_CASE("With the manifest beside the module a program uses the control without registration") {
    const OleApartment apartment;
    const auto manifest = std::filesystem::path(FindBuiltControl()).replace_extension(L".manifest").wstring();
    ACTCTXW description = {};
    description.cbSize = sizeof description;
    description.lpSource = manifest.c_str();
    const HANDLE context = CreateActCtxW(&description);
    REQUIRE(context != INVALID_HANDLE_VALUE);
    ULONG_PTR cookie = 0;
    REQUIRE(ActivateActCtx(context, &cookie));
    {
        CLSID id = CLSID_NULL;
        CHECK(CLSIDFromProgID(ProgId, &id) == S_OK);
        ComPtr<IDispatch> created;
        CHECK(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, created.PutVoid()) == S_OK);
        if (created) CHECK(Get(*created.Get(), L"DefaultCaption").Text() == L"Tab");
        if (created) CheckPages(created.Get());
    }
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

} // namespace vantik
