// Skins that somebody has tampered with: definition, bitmap and icons with bytes changed, cut off and put in. The control
// shows what it can, or says what is wrong.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include "host/SkinBesideProgram.h"
#include "host/TextPropertyBag.h"
#include "hostile/Rounds.h"
#include "ole/Canvas.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

using Files = std::map<std::wstring, std::string>;

std::string Read(const std::filesystem::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

// The built-in skin, which the control writes beside the program.
Files BuiltInSkin() {
    const LooseControl control;
    REQUIRE(control.As<IPersistPropertyBag>()->Load(MakeCom<TextPropertyBag>().Get(), nullptr) == S_OK);
    Files files;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(ProgramFolder()) / L"Temp"))
        files[entry.path().filename().wstring()] = Read(entry.path());
    REQUIRE(files.size() > 5);
    return files;
}

class Tampering {
public:
    explicit Tampering(unsigned seed) : dice_(seed) {}

    // Some bytes, mostly near the beginning, where the headers are.
    void With(std::string& bytes) {
        for (std::size_t changes = 1 + Below(6); changes > 0 && !bytes.empty(); --changes) {
            const std::size_t place =
                Below(2) ? Below(bytes.size()) : Below(std::min<std::size_t>(bytes.size(), 64));
            switch (Below(5)) {
            case 0: bytes.resize(place); break;
            case 1: bytes.insert(place, Below(40), Any()); break;
            case 2: bytes.erase(place, Below(40)); break;
            case 3: bytes[place] = Extreme(); break;
            default: bytes[place] = Any(); break;
            }
        }
    }

    std::size_t Below(std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(dice_);
    }

private:
    char Any() { return static_cast<char>(Below(256)); }
    char Extreme() { return "\x00\xFF\x7F\x80"[Below(4)]; }

    std::mt19937 dice_;
};

void Show(LooseControl& control, const std::wstring& folder) {
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Parse("TabCount = 4\nActiveTab = 1\nBarWidth = 60\nSkinPath = \"" + ToUtf8(folder) + "\\\\\"\n");
    control.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr);
    for (std::int16_t index = 0; index < 4; ++index) {
        short tab = index;
        Bstr key(index % 2 ? L"sun" : L"HandNo");
        control.Tab->SetBarIco(&tab, key.Put());
    }
    const Canvas canvas(300, 200);
    Draw(control.Object(), canvas.DC(), {0, 0, 300, 200});
}

} // namespace

TEST_CASE("no skin brings the control down, and the next one is shown all the same") {
    const Files whole = BuiltInSkin();
    const int rounds = Rounds(150);
    for (int round = 0; round < rounds; ++round) {
        CAPTURE(round);
        Tampering tampering(static_cast<unsigned>(round));
        const SkinBesideProgram skin;
        const std::size_t victim = tampering.Below(whole.size());
        for (std::size_t number = 0; const auto& [name, bytes] : whole) {
            std::string written = bytes;
            if (number++ == victim || tampering.Below(4) == 0) tampering.With(written);
            skin.Write(name, written);
        }
        LooseControl control;
        Show(control, skin.SkinPath());
        short count = 0;
        CHECK(control.Tab->get_TabCount(&count) == S_OK);
        CHECK(count == 4);
        CHECK(control.As<IPersistPropertyBag>()->Load(MakeCom<TextPropertyBag>().Get(), nullptr) == S_OK);
    }
}

} // namespace vantik
