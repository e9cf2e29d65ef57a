// A host that is linked the ordinary way: its exceptions run on the DLLs of the compiler's run-time library, which are in
// the process before the control comes and stay when it goes.
#include <string>

#include "host/BuiltControl.h"
#include "host/OleApartment.h"
#include "hostile/RaisedErrors.h"

namespace vantik {

namespace {

void CheckOwnExceptions() {
    try {
        throw std::string("of the host");
    } catch (const std::string& text) {
        CHECK(text == "of the host");
    }
}

bool HasLibrary(const wchar_t* name) { return GetModuleHandleW(name) != nullptr; }

} // namespace

TEST_CASE("this program uses the run-time library's DLLs") {
    CHECK(HasLibrary(L"libstdc++-6.dll"));
    CHECK((HasLibrary(L"libgcc_s_dw2-1.dll") || HasLibrary(L"libgcc_s_seh-1.dll")));
}

TEST_CASE("errors come back from inside the control, and the host's exceptions work as before") {
    const OleApartment apartment;
    CheckOwnExceptions();
    for (int round = 0; round < 3; ++round) {
        const ControlModule module(FindBuiltControl());
        CheckOwnExceptions();
        CheckThatErrorsComeBack(module);
        CheckOwnExceptions();
    }
    CheckOwnExceptions();
}

} // namespace vantik
