// Skin definitions: whatever the text, a parse ends with a documented error or none, and what it stored is consistent.
#include <cstdlib>
#include <string>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "skin/SkinParser.h"

namespace vantik {

namespace {

struct Outcome {
    ControlState State;
    RunTimeErrorNumber Error{};
};

void NoPictures(const std::u16string&, PngSize&) {}

Outcome Parse(std::u16string_view text) {
    Outcome outcome;
    try {
        SkinParser(outcome.State, SkinFolder(u"C:\\host", u"Skin\\"), NoPictures).Parse(text);
    } catch (const RunTimeError& error) {
        outcome.Error = error.Number();
    }
    return outcome;
}

void Require(bool condition) {
    if (!condition) std::abort();
}

bool IsDocumented(RunTimeErrorNumber error) {
    return error == RunTimeErrorNumber{} || error == RunTimeErrorNumber::Overflow ||
           error == RunTimeErrorNumber::SubscriptOutOfRange || error == RunTimeErrorNumber::TypeMismatch;
}

// A line that failed may have left its rectangle half stored.
void CheckRects(const SkinRects& rects) {
    for (std::int32_t i = 0; i < SkinRects::Count; ++i) {
        const SkinRect& r = rects[i];
        if (r == SkinRect{}) continue;
        Require(std::int64_t{r.Width} == std::int64_t{r.Right} - r.Left + 1);
        Require(std::int64_t{r.Height} == std::int64_t{r.Bottom} - r.Top + 1);
    }
}

void CheckIcons(const SkinIcons& icons) {
    for (const SkinIcon& icon : icons.Entries) {
        Require(icon.Name == UpperCase(icon.Name));
        Require(icon.FilePath.starts_with(u"C:\\host\\Skin\\\\"));
    }
    const auto isRole = [&](std::int16_t index, const char16_t* name) {
        return index == -1 || icons.Entries.at(static_cast<std::size_t>(index)).Name == name;
    };
    Require(isRole(icons.DeleteButtonIcon, u"DELETEBUTTON"));
    Require(isRole(icons.LeftButtonIcon, u"LEFTBUTTON"));
    Require(isRole(icons.RightButtonIcon, u"RIGHTBUTTON"));
}

void CheckSame(const Outcome& a, const Outcome& b) {
    Require(a.Error == b.Error);
    Require(a.State.SkinBitmapPath == b.State.SkinBitmapPath);
    Require(a.State.SkinIcons.Entries.size() == b.State.SkinIcons.Entries.size());
    for (std::int32_t i = 0; i < SkinRects::Count; ++i) Require(a.State.SkinRects[i] == b.State.SkinRects[i]);
}

} // namespace

} // namespace vantik

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantik;
    const std::u16string text = DecodeAnsi({reinterpret_cast<const char*>(data), size});
    const Outcome outcome = Parse(text);
    Require(IsDocumented(outcome.Error));
    if (outcome.Error == RunTimeErrorNumber{}) CheckRects(outcome.State.SkinRects);
    CheckIcons(outcome.State.SkinIcons);
    // Nothing behind an end line is read.
    CheckSame(outcome, Parse(text + u"\nEnd\nStart\n[Tab]\nFile: other.bmp\n0: 9,9,9,9\nx: y"));
    return 0;
}
