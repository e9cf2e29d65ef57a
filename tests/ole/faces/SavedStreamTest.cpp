// What the control makes of streams that are not as it saved them: of a later version, cut short, damaged, another's.
#include <doctest/doctest.h>

#include <algorithm>
#include <iterator>

#include "ole/Canvas.h"
#include "ole/faces/SavedControl.h"

namespace vantik {

TEST_CASE("A stream that was cut short or is none of the control's leaves it as it was") {
    const auto whole = BytesOfChanged();
    LooseControl control;
    Put(control.Dispatch(), L"FrameDist", std::int16_t{9});
    const std::string before = StateOf(control);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        CAPTURE(size);
        const std::vector<std::byte> part(whole.begin(), whole.begin() + long(size));
        CHECK(FAILED(control.As<IPersistStreamInit>()->Load(StreamOf(part).Get())));
        CHECK(FAILED(control.As<IPersistStorage>()->Load(StorageOf(part).Get())));
        if (size % 16 == 0) CHECK(StateOf(control) == before);
    }
    CHECK(StateOf(control) == before);
    auto foreign = whole;
    foreign[0] = std::byte{0};
    CHECK(FAILED(control.As<IPersistStreamInit>()->Load(StreamOf(foreign).Get())));
    CHECK(StateOf(control) == before);
}

namespace {

// Where the bitmap file of the saved picture begins.
std::size_t BitmapIn(const std::vector<std::byte>& bytes) {
    constexpr std::byte magic[] = {std::byte{'B'}, std::byte{'M'}};
    const auto at = std::search(bytes.begin(), bytes.end(), std::begin(magic), std::end(magic));
    REQUIRE(at != bytes.end());
    return static_cast<std::size_t>(at - bytes.begin());
}

} // namespace

// The platform's own reader of saved pictures takes sizes and offsets as they stand and reads, or writes, there.
TEST_CASE("A saved picture whose header is damaged anywhere is refused or read, and the control lives on") {
    const auto whole = BytesOfChanged();
    const std::size_t bitmap = BitmapIn(whole);
    constexpr std::size_t lengthBefore = 8, headers = 14 + 40, colours = 8;
    int refused = 0;
    for (std::size_t at = bitmap - lengthBefore; at < bitmap + headers + colours; ++at)
        for (const int value : {0x00, 0x01, 0x0C, 0x7F, 0x80, 0xFF}) {
            auto bytes = whole;
            bytes[at] = std::byte(value);
            LooseControl control;
            const HRESULT loaded = control.As<IPersistStreamInit>()->Load(StreamOf(bytes).Get());
            CHECK((loaded == S_OK || loaded == STG_E_DOCFILECORRUPT));
            refused += loaded != S_OK;
        }
    CHECK(refused > 100); // the rest says the same, or nothing that is of use
}

TEST_CASE("A saved picture says that it is none, or is damaged where it is cut short") {
    const auto whole = BytesOfChanged();
    const std::size_t length = BitmapIn(whole) - 4;
    const auto withLength = [&](std::uint8_t value) {
        auto bytes = whole;
        bytes[length] = std::byte{value};
        return bytes;
    };
    LooseControl none, cut;
    CHECK(none.As<IPersistStreamInit>()->Load(StreamOf(withLength(0)).Get()) == S_OK);
    CHECK(PictureText(none.Dispatch()) == L"none");
    const auto one = static_cast<std::uint8_t>(std::to_integer<int>(whole[length]) - 1);
    CHECK(cut.As<IPersistStreamInit>()->Load(StreamOf(withLength(one)).Get()) == STG_E_DOCFILECORRUPT);
    CHECK(PictureText(cut.Dispatch()) == L"none");
}

TEST_CASE("No bytes of a stream can bring the control down") {
    const auto whole = BytesOfChanged();
    const Canvas canvas(300, 200);
    unsigned seed = 4711;
    for (int round = 0; round < 300; ++round) {
        auto bytes = whole;
        for (int changes = 0; changes < 3; ++changes) {
            seed = seed * 1103515245 + 12345;
            bytes[(seed >> 8) % bytes.size()] = std::byte(seed >> 24);
        }
        LooseControl control;
        control.As<IPersistStreamInit>()->Load(StreamOf(bytes).Get());
        short count = 0;
        CHECK(control.Tab->get_TabCount(&count) == S_OK);
        Draw(control.Object(), canvas.DC(),
             {0, 0, 300, 200}); // a font that is none is found out when it is used
    }
}
TEST_CASE("A newer version's unknown properties are passed over, missing ones have their defaults") {
    LooseControl control;
    SavedBytes saved;
    saved.Add(u"Glow", 4711, {1, 2, 3});
    saved.Add(u"BarWidth", VT_I2, {99});
    CHECK(control.As<IPersistStreamInit>()->Load(saved.Stream(2).Get()) == S_OK); // a version to come
    CHECK(Get(control.Dispatch(), L"BarWidth").Number() == 99);
    CHECK(Get(control.Dispatch(), L"DefaultCaption").Text() == L"Tab");
}

TEST_CASE("A flag that was saved as another number than True's comes back as it stands") {
    for (const auto& [type, number] : {std::pair(VT_BOOL, 5), std::pair(VT_I2, 5), std::pair(VT_I2, -1)}) {
        CAPTURE(type);
        CAPTURE(number);
        LooseControl control;
        SavedBytes saved;
        saved.Add(u"TabBorder", static_cast<std::uint16_t>(type), {static_cast<std::uint16_t>(number)});
        REQUIRE(control.As<IPersistStreamInit>()->Load(saved.Stream().Get()) == S_OK);
        VARIANT_BOOL border = 0;
        CHECK(control.Tab->get_TabBorder(&border) == S_OK);
        CHECK(border == number);
        const auto again = NewStream();
        REQUIRE(control.As<IPersistStreamInit>()->Save(again.Get(), TRUE) == S_OK);
        Rewind(*again.Get());
        REQUIRE(control.As<IPersistStreamInit>()->Load(again.Get()) == S_OK);
        CHECK(control.Tab->get_TabBorder(&border) == S_OK);
        CHECK(border == number);
    }
}
} // namespace vantik
