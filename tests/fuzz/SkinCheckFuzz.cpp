// Skins checked: whatever the definition and its files are, each fault has a place in the text, and the text is taken apart
// as the control's own parser does it.
#include <cstdlib>
#include <string>
#include <vector>

#include "base/Text.h"
#include "check/CheckSkin.h"
#include "check/DefinitionText.h"
#include "check/Utf8.h"
#include "model/ControlState.h"
#include "skin/SkinParser.h"

namespace vantik {

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

// Every file with an "A" in its name is there, and holds what the definition holds.
class FuzzedSkin final : public SkinSource {
public:
    explicit FuzzedSkin(std::string bytes) : bytes_(std::move(bytes)) {}

    std::string Name() const override { return "SKIN.INI"; }
    std::string Definition() const override { return bytes_; }
    std::vector<SkinFile> Find(const std::u16string& name) const override {
        if (UpperCase(name).find(u'A') == std::u16string::npos) return {};
        return {{name, true, {bytes_.begin(), bytes_.end()}}};
    }

private:
    std::string bytes_;
};

void CheckFault(const Fault& fault, const DefinitionText& text) {
    Require(fault.Line >= 1 && static_cast<std::size_t>(fault.Line) <= text.Lines().size());
    const Span line = text.Lines()[static_cast<std::size_t>(fault.Line) - 1].All;
    Require(fault.Column >= 1 && static_cast<std::size_t>(fault.Column) <= line.Size() + 1);
    Require(!fault.What.empty() && !fault.Effect.empty());
    Require(IsUtf8(Format(fault)));
}

std::string Shown(std::u16string_view text) { return {text.begin(), text.end()}; }

std::string Shown(const SkinRect& rect) {
    return std::to_string(rect.Left) + "," + std::to_string(rect.Right) + "," + std::to_string(rect.Top) +
           "," + std::to_string(rect.Bottom);
}

std::string Shown(const SkinDefinition::Entry& entry) {
    if (const auto* bitmap = std::get_if<NamedBitmap>(&entry)) return "File: " + Shown(bitmap->File);
    if (const auto* rect = std::get_if<NumberedRect>(&entry))
        return std::to_string(rect->Index) + ": " + Shown(rect->Rect);
    const auto& icon = std::get<KeyedIcon>(entry);
    return std::to_string(icon.Line) + " " + Shown(icon.Key) + ": " + Shown(icon.File);
}

void NoPictures(const std::u16string&, PngSize&) {}

std::vector<std::string> SaidToControl(const std::string& bytes) {
    ControlState state;
    SkinParser parser(state, SkinFolder(u"C:\\host", u"Skin\\"), NoPictures);
    try {
        parser.Parse(DecodeAnsi(bytes));
    } catch (const RunTimeError&) { // what was said before it counts
    }
    std::vector<std::string> said;
    const auto definition = parser.TakeSaid();
    for (const SkinDefinition::Entry& entry : definition->Entries()) said.push_back(Shown(entry));
    return said;
}

// Up to the first line that the control refuses.
std::vector<std::string> SaidByLines(const DefinitionText& text) {
    std::vector<std::string> said;
    for (const DefinitionLine& line : text.Lines()) {
        if (line.Kind != LineKind::Entry) continue;
        const std::string value = Shown(text.Upper(line.Value));
        if (line.IsFile) {
            said.push_back("File: " + value);
        } else if (line.Section == SectionKind::Tab) {
            const auto rect = line.Rect ? text.RectOf(line) : std::nullopt;
            if (!rect) return said;
            said.push_back(std::to_string(*line.Rect) + ": " + Shown(*rect));
        } else if (line.Section == SectionKind::Icon) {
            said.push_back(std::to_string(line.Number) + " " + Shown(text.Upper(line.Key)) + ": " + value);
        }
    }
    return said;
}

} // namespace

} // namespace vantik

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantik;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const DefinitionText text(bytes);
    for (const Fault& fault : CheckSkin(FuzzedSkin(bytes))) CheckFault(fault, text);
    Require(SaidByLines(text) == SaidToControl(bytes));
    return 0;
}
