#include <doctest/doctest.h>

#include <array>

#include "png/LoadPNG.h"
#include "tests/gfx/TestSurface.h"
#include "tests/png/PngBytes.h"

namespace vantik {

namespace {

using test::Pixels;
using test::TestSurface;

constexpr int Threads = 4;
constexpr int DrawsEach = 1000;
constexpr std::int32_t Extent = 40;

// One apartment: its own surface, its own icon of one opaque colour. The icon comes from memory, so that the threads meet
// in GDI and not in front of the disk.
struct Apartment {
    std::uint8_t Level = 0;
    bool IsScaled = false; // a target whose pictures have to be copied from bitmaps
    int Wrong = 0;

    Bytes Icon() const {
        const HeaderFields fields = {.Width = Extent, .Height = Extent, .ColourType = 0};
        Bytes rows;
        for (std::int32_t y = 0; y < Extent; ++y) {
            rows.push_back(0);
            rows.insert(rows.end(), Extent, Level);
        }
        return PngBytes().Header(fields).StoredImage(rows).End();
    }

    void Run() {
        const Bytes icon = Icon();
        TestSurface surface(Extent, Extent);
        if (IsScaled) SetMapMode(surface.DC(), MM_ANISOTROPIC);
        for (int i = 0; i < DrawsEach; ++i) Wrong += !DrawsRight(surface, icon);
    }

    bool DrawsRight(TestSurface& surface, const Bytes& icon) const {
        PatBlt(surface.DC(), 0, 0, Extent, Extent, BLACKNESS);
        LoadPNG png;
        png.PicBox(surface.DC());
        png.OpenPNGfromRes(reinterpret_cast<std::uintptr_t>(icon.data()),
                           static_cast<std::int32_t>(icon.size()));
        return surface.Read() == Pixels(Extent, Extent, Level * 0x010101u);
    }
};

DWORD WINAPI RunApartment(void* apartment) {
    static_cast<Apartment*>(apartment)->Run();
    return 0;
}

int WrongOf(bool isScaled) {
    std::array<Apartment, Threads> apartments;
    std::array<HANDLE, Threads> threads = {};
    for (std::size_t i = 0; i < Threads; ++i) {
        apartments[i].Level = static_cast<std::uint8_t>(40 * (i + 1));
        apartments[i].IsScaled = isScaled;
        threads[i] = CreateThread(nullptr, 0, RunApartment, &apartments[i], 0, nullptr);
    }
    WaitForMultipleObjects(Threads, threads.data(), TRUE, INFINITE);
    for (const HANDLE thread : threads) CloseHandle(thread);
    int wrong = 0;
    for (const Apartment& apartment : apartments) wrong += apartment.Wrong;
    return wrong;
}

} // namespace

TEST_CASE("threads that draw icons at the same time do not stand in each other's way") {
    CHECK(WrongOf(false) == 0);
    CHECK(WrongOf(true) == 0);
}

} // namespace vantik
