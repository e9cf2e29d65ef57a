// Reads the text of a skin definition:
//
//     Start
//     [Tab]
//     File: Skin2.bmp
//     5: 13,16,0,21     //Left,Right,Top,Bottom of rectangle 5
//     [Icon]
//     MenuBar: menubar.png
//     End
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "model/ControlState.h"
#include "render/PngSizeReading.h"
#include "skin/SkinDefinition.h"
#include "skin/SkinFolder.h"

namespace vantik {

using PngSizeReader = void (*)(const std::u16string& path, PngSize& size);

// One parse; every parse takes a parser of its own. Entries take effect as they are read: what was stored before the
// error, by the lines before it and by the failing line itself, stays in force. What an error says begins with the number
// of its line.
class SkinParser {
public:
    SkinParser(ControlState& state, SkinFolder folder, PngSizeReader readSize = ReadPngFileSize)
        : state_(state), folder_(std::move(folder)), readSize_(readSize) {}

    // All lines up to one that begins with END. A line ends with CR LF, CR or LF.
    void Parse(std::u16string_view text);

    // What a parse without an error said before; with the same outcome as parsing the text again.
    void Apply(const SkinDefinition& said);

    // What was said since the parser was made; null without the memory for it.
    std::shared_ptr<const SkinDefinition> TakeSaid() noexcept;

    // False when the line ends the definition.
    bool ParseLine(std::u16string_view text);

    // One entry of [Tab]: the bitmap's name, or a rectangle by its number. TypeMismatch for text that is no number,
    // SubscriptOutOfRange for a number outside 0..25 and for fewer than four coordinates, Overflow.
    void ParseSkinRectEntry(std::u16string_view key, std::u16string_view value);

    // One entry of [Icon]. Overflow past 32,767 icons; reading the size of a button's picture may raise.
    void ParseSkinIconEntry(std::u16string_view key, std::u16string_view value);

private:
    void Apply(const NamedBitmap& said) { NameBitmap(said.File); }
    void Apply(const NumberedRect& said) { state_.SkinRects[said.Index] = said.Rect; }
    void Apply(const KeyedIcon& said);
    template <class Work>
    void AtLine(Work work);
    void ParseContent();
    void ParseEntry(std::u16string_view entry);
    void NameBitmap(std::u16string_view file) { state_.SkinBitmapPath = folder_.PathOf(file); }
    void AppendIcon(std::u16string_view key, std::u16string_view value);
    std::int16_t RectIndexOf(std::u16string_view key) const;
    std::u16string_view AsWritten(std::u16string_view part) const noexcept;

    ControlState& state_;
    SkinFolder folder_;
    PngSizeReader readSize_;
    std::int32_t lineNumber_ = 0;   // from 1
    std::u16string_view asWritten_; // the line as it stands in the file, without blanks around it
    std::u16string line_;           // the same in upper case
    bool started_ = false;
    std::u16string section_;
    SkinDefinition said_;
};

} // namespace vantik
