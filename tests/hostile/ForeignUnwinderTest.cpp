// Hosts that load a library under the name of the compiler's unwinder, before the control or after it.
#include <filesystem>
#include <memory>

#include "host/BuiltControl.h"
#include "host/OleApartment.h"
#include "hostile/RaisedErrors.h"

namespace vantik {

namespace {

class Library {
public:
    explicit Library(const wchar_t* folder)
        : module_(LoadLibraryW((ProgramFolder() / folder / UNWINDER_FILE).c_str())) {
        REQUIRE(module_);
    }
    ~Library() { FreeLibrary(module_); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    int Calls() const { return reinterpret_cast<int (*)()>(GetProcAddress(module_, "CallsOfUnwinder"))(); }

private:
    static std::filesystem::path ProgramFolder() {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        return std::filesystem::path(path).parent_path();
    }

    HMODULE module_;
};

} // namespace

TEST_CASE("no unwinder in the process but the control's own") {
    const OleApartment apartment;
    REQUIRE(!GetModuleHandleW(UNWINDER_FILE));
    const ControlModule module(FindBuiltControl());
    CheckThatErrorsComeBack(module);
}

TEST_CASE("a library that only has the unwinder's name is left alone") {
    const OleApartment apartment;
    const Library unwinder(L"counting");
    {
        const ControlModule module(FindBuiltControl());
        CheckThatErrorsComeBack(module);
    }
    CHECK(unwinder.Calls() == 0);
}

TEST_CASE("a library that only has the unwinder's name goes when its owner lets it go") {
    const OleApartment apartment;
    auto unwinder = std::make_unique<Library>(L"counting");
    const ControlModule module(FindBuiltControl());
    unwinder.reset();
    CHECK(!GetModuleHandleW(UNWINDER_FILE));
    CheckThatErrorsComeBack(module);
}

// From here on the compiler's own is in the process: once loaded it stays.
TEST_CASE("an unwinder that is loaded after the control, before its first error") {
    const OleApartment apartment;
    const ControlModule module(FindBuiltControl());
    const Library unwinder(L"foreign");
    CheckThatErrorsComeBack(module);
}

TEST_CASE("an unwinder that was loaded before the control") {
    const OleApartment apartment;
    const Library unwinder(L"foreign");
    const ControlModule module(FindBuiltControl());
    CheckThatErrorsComeBack(module);
}

} // namespace vantik
