#include "host/SkinSettings.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

#include "host/HostError.h"

namespace vantik {

namespace {

const std::vector<EnumerationMember> Constants = {{L"AlignLeft", 0}, {L"AlignMiddle", 1}};

// A file with this text, gone again at the end.
class SettingsFile {
public:
    explicit SettingsFile(const std::string& text) {
        std::ofstream(std::filesystem::path(Path), std::ios::binary) << text;
    }
    ~SettingsFile() { DeleteFileW(Path.c_str()); }

    const std::wstring Path = L"settings-" + std::to_wstring(GetCurrentProcessId()) + L".txt";
};

std::string ErrorOf(const std::string& text) {
    const SettingsFile file(text);
    try {
        ReadSkinSettings(file.Path);
    } catch (const HostError& error) {
        const std::string what = error.what();
        return what.substr(what.find(", "));
    }
    return "none";
}

} // namespace

TEST_CASE("a skin's settings come in the order of their lines") {
    const SettingsFile file(
        "// light\r\n\r\nBarWidth = 150\r\n  CaptionPos=AlignMiddle  \r\n  // more\n"
        "CaptionColor0 = #3a3f49");
    const auto settings = ReadSkinSettings(file.Path);
    REQUIRE(settings.size() == 3);
    CHECK(settings[0].Property == L"BarWidth");
    CHECK(settings[0].Value == L"150");
    CHECK(settings[1].Property == L"CaptionPos");
    CHECK(settings[1].Value == L"AlignMiddle");
    CHECK(settings[2].Property == L"CaptionColor0");
    CHECK(settings[2].Value == L"#3a3f49");
}

TEST_CASE("a skin's settings that cannot be read say which line") {
    CHECK(ErrorOf("BarWidth = 1\nBarWidth 150\n") == ", line 2: expected Property = Value");
    CHECK(ErrorOf("= 150") == ", line 1: expected Property = Value");
    CHECK(ErrorOf("\n\nBarWidth =\r\n") == ", line 3: expected Property = Value");
    CHECK_THROWS_AS(ReadSkinSettings(L"nowhere.txt"), HostError);
}

TEST_CASE("a skin's setting is a number, a colour, a constant or a flag") {
    CHECK(SettingFromText(L"-16", Constants).Number() == -16);
    CHECK(SettingFromText(L"#FF8001", Constants).Number() == 0x0180FF);
    CHECK(SettingFromText(L"alignmiddle", Constants).Number() == 1);
    CHECK(SettingFromText(L"True", Constants).Type() == VT_BOOL);
    CHECK(SettingFromText(L"True", Constants).Flag());
    CHECK_FALSE(SettingFromText(L"false", Constants).Flag());
}

TEST_CASE("a skin's setting that is nothing of all that is refused") {
    for (const wchar_t* text : {L"maybe", L"#12", L"#12345x", L"# 1234", L"#+1234", L"AlignTop"})
        CHECK_THROWS_AS(SettingFromText(text, Constants), HostError);
}

} // namespace vantik
