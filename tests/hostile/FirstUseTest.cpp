// A system function that fails when a process uses the control for the first time: what comes of it does not stay for
// those who come when it works again.
#include <doctest/doctest.h>

#include <string>
#include <type_traits>

#include "host/BuiltControl.h"
#include "host/ControlModule.h"
#include "host/HostForm.h"
#include "host/MessageLoop.h"
#include "host/OleApartment.h"
#include "host/Snapshot.h"
#include "hostile/PatchedImport.h"
#include "hostile/Worker.h"

namespace vantik {

namespace {

template <class Function>
struct Failing;
template <class Result, class... Arguments>
struct Failing<Result(WINAPI*)(Arguments...)> {
    static Result WINAPI Call(Arguments...) noexcept {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        if constexpr (std::is_same_v<Result, HRESULT>)
            return E_OUTOFMEMORY;
        else
            return Result();
    }
};

struct Import {
    const char* Name;
    const void* Failing;
};

template <class Function>
Import FailingImport(const char* name, Function*) {
    return {name, reinterpret_cast<const void*>(Failing<Function*>::Call)};
}

#define IMPORT(name) FailingImport(#name, name)

// What a control needs from its making to its first picture.
const Import Imports[] = {
    IMPORT(BitBlt),
    IMPORT(CoTaskMemAlloc),
    IMPORT(CreateBitmap),
    IMPORT(CreateCompatibleBitmap),
    IMPORT(CreateCompatibleDC),
    IMPORT(CreateDCW),
    IMPORT(CreateDIBSection),
    IMPORT(CreateDIBitmap),
    IMPORT(CreateDirectoryW),
    IMPORT(CreateFileW),
    IMPORT(CreateFontIndirectW),
    IMPORT(CreateStreamOnHGlobal),
    IMPORT(CreateWindowExW),
    IMPORT(FindResourceW),
    IMPORT(GetCurrentObject),
    IMPORT(GetDC),
    IMPORT(GetDIBits),
    IMPORT(GetDeviceCaps),
    IMPORT(GetModuleFileNameW),
    IMPORT(GetObjectW),
    IMPORT(GetStockObject),
    IMPORT(GetSysColorBrush),
    IMPORT(IntersectClipRect),
    IMPORT(LoadCursorW),
    IMPORT(LoadResource),
    IMPORT(LoadTypeLibEx),
    IMPORT(OleCreateFontIndirect),
    IMPORT(OleLoadPicture),
    IMPORT(ReadFile),
    IMPORT(RegisterClassExW),
    IMPORT(SaveDC),
    IMPORT(SelectObject),
    IMPORT(SetDIBits),
    IMPORT(SetDIBitsToDevice),
    IMPORT(SysAllocString),
    IMPORT(SysAllocStringLen),
};

#undef IMPORT

struct Looks {
    Snapshot Picture;
    bool HasPointer = false;

    bool operator==(const Looks&) const = default;
};

Looks LooksOf(ControlModule& module) {
    HostForm form(module, {});
    form.Window().Show();
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Parse("TabCount = 3\nActiveTab = 0\nBarWidth = 60\nDelButton = True\n");
    form.OpenFrom(*bag.Get());
    for (std::int16_t index = 0; index < 3; ++index) Call(form.Control(), L"SetBarIco", {index, L"sun"});
    PumpMessages(form);
    return {TakeSnapshot(form.Window().Handle()), GetClassLongPtrW(form.ControlWindow(), GCLP_HCURSOR) != 0};
}

Looks LooksInAnotherApartment(ControlModule& module) {
    Looks looks;
    Worker().Do([&] { looks = LooksOf(module); });
    return looks;
}

void UseWhileItFails(ControlModule& module, const Import& import) {
    const PatchedImport failing(GetModuleHandleW(L"VantikFrameTab.ocx"), import.Name, import.Failing);
    try {
        LooksOf(module);
    } catch (const HostError&) { // not everything can be had then
    }
}

} // namespace

TEST_CASE("what failed at the first use works for the next control, in every apartment") {
    const OleApartment apartment;
    Looks expected;
    {
        ControlModule module(FindBuiltControl());
        expected = LooksOf(module);
    }
    REQUIRE(expected.HasPointer);
    for (const Import& import : Imports) {
        CAPTURE(std::string(import.Name));
        REQUIRE(!GetModuleHandleW(L"VantikFrameTab.ocx"));
        ControlModule module(FindBuiltControl());
        UseWhileItFails(module, import);
        CHECK(LooksOf(module) == expected);
        CHECK(LooksInAnotherApartment(module) == expected);
        CHECK(module.CanUnload());
    }
}

} // namespace vantik
