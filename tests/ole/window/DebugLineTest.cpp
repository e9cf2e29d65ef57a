// Errors that end inside the control, as whoever debugs the host reads of them.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"
#include "host/DebugLines.h"
#include "host/HostError.h"
#include "host/Input.h"
#include "host/SkinBesideProgram.h"

namespace vantik {

namespace {

using Lines = std::vector<std::string>;

void Resize(ControlOnForm& test, int width) {
    SetWindowPos(test.Form().ControlWindow(), nullptr, 0, 0, width, 200, SWP_NOMOVE | SWP_NOZORDER);
    UpdateWindow(test.Form().ControlWindow());
}

void Paint(ControlOnForm& test) {
    InvalidateRect(test.Form().ControlWindow(), nullptr, FALSE);
    UpdateWindow(test.Form().ControlWindow());
}

void LetLayoutFail(ControlOnForm& test) {
    CHECK_THROWS_AS(Put(test.Control(), L"BarWidth", std::int16_t{0}), AutomationError);
}

} // namespace

TEST_CASE("A skin that cannot be read at the first showing is one line, which says what a load would") {
    const SkinBesideProgram skin;
    skin.Write(L"skin.ini", "Start\n[Tab]\n1: a,b\n");
    ControlOnForm test;
    test.Form().OpenNew();
    Put(test.Control(), L"SkinPath", skin.SkinPath());
    DebugLines debugger;
    Put(test.Control(), L"TabCount", std::int16_t{3});
    for (int i = 0; i < 3; ++i) Paint(test);
    CHECK(debugger.Take() == Lines{"error 13 when it was first shown: " + ToUtf8(skin.PathOf(L"skin.ini")) +
                                   ", line 3: \"a\" is not a number"});
}

TEST_CASE("A built-in skin that cannot be written at the first showing is one line with the remedy") {
    const std::wstring temp = ProgramFolder() + L"\\Temp";
    CreateDirectoryW(temp.c_str(), nullptr);
    const HANDLE held =
        CreateFileW((temp + L"\\sun.png").c_str(), GENERIC_READ, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
    REQUIRE(held != INVALID_HANDLE_VALUE);
    ControlOnForm test;
    test.Form().OpenNew();
    DebugLines debugger;
    Put(test.Control(), L"TabCount", std::int16_t{3});
    CloseHandle(held);
    CHECK(debugger.Take() ==
          Lines{"error 70 when it was first shown: " + ToUtf8(ProgramFolder()) +
                "\\Skin\\skin.ini is missing, and the built-in skin cannot be written to " + ToUtf8(temp) +
                "\\sun.png: Permission denied. Ship a skin with the application, or let it write there"});
}

TEST_CASE("Each press, key or wheel whose handler fails is a line, a success none") {
    ControlOnForm test;
    test.OpenWithTabs(3);
    test.DuringEvent = [](EventCall& event) {
        if (event.Name() == L"TabDown") throw HostError("", HRESULT(0x800A000D));
    };
    DebugLines debugger;
    for (int i = 0; i < 2; ++i) {
        PressButton(test.Form(), {75, 10});
        ReleaseButton(test.Form(), {75, 10});
    }
    CHECK(debugger.Take() == Lines(2, "error 13 on a press of the pointer: Type mismatch"));
    PressKey(test.Form(), VK_RIGHT);
    CHECK(debugger.Take() == Lines{"error 13 on a key: Type mismatch"});
    TurnWheel(test.Form(), 1);
    CHECK(debugger.Take() == Lines{"error 13 in its message hook: Type mismatch"});
    test.DuringEvent = nullptr;
    PressKey(test.Form(), VK_RIGHT);
    CHECK(debugger.Take() == Lines{});
}

TEST_CASE("What the system repeats is a line when it begins to fail, and when it fails again") {
    ControlOnForm test;
    test.OpenWithTabs(2);
    LetLayoutFail(test);
    DebugLines debugger;
    for (int width = 300; width < 320; ++width) Resize(test, width);
    CHECK(debugger.Take() ==
          Lines{"error 11 while it was resized: No layout for BarWidth = 0, TabCount = 2 on "
                "300 x 200 pixels: Division by zero"});
    MovePointer(test.Form(), {75, 10});
    MovePointer(test.Form(), {76, 10});
    CHECK(debugger.Take() == Lines{"error 11 on a move of the pointer: BarWidth is 0"});
    Put(test.Control(), L"BarWidth", std::int16_t{60});
    Resize(test, 320);
    LetLayoutFail(test);
    Resize(test, 321);
    CHECK(debugger.Take().size() == 1);
}

TEST_CASE("An icon that cannot be drawn is a line with its file, however often it is tried") {
    const SkinBesideProgram skin;
    skin.Write(L"skin.ini", "Start\n[Icon]\nGone: gone.png\nBad: bad.png\n");
    skin.Write(L"bad.png", "no picture");
    ControlOnForm test;
    test.Form().OpenNew();
    Put(test.Control(), L"SkinPath", skin.SkinPath());
    Put(test.Control(), L"BarWidth", std::int16_t{60});
    Put(test.Control(), L"TabCount", std::int16_t{3});
    DebugLines debugger;
    for (int i = 0; i < 3; ++i) {
        Call(test.Control(), L"SetBarIco", {std::int16_t{0}, L"gone"});
        Call(test.Control(), L"SetBarIco", {std::int16_t{1}, L"bad"});
        Put(test.Control(), L"TabPos", std::int32_t{i});
        Paint(test);
    }
    CHECK(debugger.Take() ==
          Lines{"error 53 while an icon was drawn: " + ToUtf8(skin.PathOf(L"GONE.PNG")) + ": File not found",
                "error 481 while an icon was drawn: " + ToUtf8(skin.PathOf(L"BAD.PNG")) +
                    ": nothing can be drawn of it"});
}

} // namespace vantik
