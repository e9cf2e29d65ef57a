// Registering and unregistering while the registry refuses: the caller is told, and once it refuses no more nothing is left.
#include <doctest/doctest.h>

#include "host/BuiltControl.h"
#include "host/OleApartment.h"
#include "hostile/FaultInjector.h"

namespace vantik {

namespace {

bool Exists(const wchar_t* key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key, 0, KEY_READ, &opened)) return false;
    RegCloseKey(opened);
    return true;
}

bool IsAnythingRegistered() {
    return Exists(L"VantikFrameTabProject.VantikFrameTab") ||
           Exists(L"CLSID\\{D114C80B-464C-4291-9BC1-FB1295823C1E}") ||
           Exists(L"TypeLib\\{9E5F043C-D27A-428A-9C0F-FA9A67ADF68E}");
}

class Server {
public:
    Server() : Module(LoadLibraryW(FindBuiltControl().c_str())) { REQUIRE(Module); }
    ~Server() { FreeLibrary(Module); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    HRESULT Register() const { return Call("DllRegisterServer"); }
    HRESULT Unregister() const { return Call("DllUnregisterServer"); }

    const HMODULE Module;

private:
    HRESULT Call(const char* function) const {
        return reinterpret_cast<HRESULT(WINAPI*)()>(GetProcAddress(Module, function))();
    }
};

// Asking whether a key exists has an answer in any case.
bool MustTell(const std::string& import) { return import != "RegOpenKeyExW"; }

// The numbers of calls in one round, and whether both functions said that all went well.
struct Round {
    long Calls;
    bool WentWell;
};

Round RoundWithFailing(const Server& server, FaultyImport& import, long call) {
    const FaultInjector injector(server.Module);
    import.FailsFrom = import.FailsTo = call;
    const HRESULT entered = server.Register(), left = server.Unregister();
    return {import.Calls, SUCCEEDED(entered) && SUCCEEDED(left)};
}

} // namespace

TEST_SUITE_BEGIN("registering");

TEST_CASE("whatever the registry refuses, it is told, and unregistering leaves nothing") {
    const OleApartment apartment;
    const Server server;
    REQUIRE(server.Register() == S_OK); // with what other tests may have left of it
    REQUIRE(server.Unregister() == S_OK);
    REQUIRE(!IsAnythingRegistered());
    int failures = 0;
    for (FaultyImport& import : FaultyImports()) {
        const std::string name = import.Name;
        const bool ofRegistry =
            name.starts_with("Reg") || name.ends_with("TypeLib") || name.ends_with("TypeLibEx");
        if (!ofRegistry || name.starts_with("RegisterClass")) continue;
        CAPTURE(name);
        for (long call = 1;; ++call) {
            CAPTURE(call);
            const Round round = RoundWithFailing(server, import, call);
            if (round.Calls < call) break;
            ++failures;
            if (MustTell(name)) CHECK(!round.WentWell);
            CHECK(server.Unregister() == S_OK);
            CHECK(!IsAnythingRegistered());
        }
    }
    CHECK(failures > 20);
}

TEST_SUITE_END();

} // namespace vantik
