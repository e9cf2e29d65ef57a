// A definition parsed into a fresh control, where the size of every picture file is made up by the test.
#pragma once

#include <string>
#include <vector>

#include "skin/SkinParser.h"
#include "tests/RunTimeErrors.h"

namespace vantik {

// Pictures called N_WxH have that size; others are not there.
inline void SizeFromFileName(const std::u16string& path, PngSize& size) {
    const std::size_t name = path.rfind(u'_'), times = path.find(u'X', name);
    if (name == std::u16string::npos || times == std::u16string::npos) return;
    const auto number = [&](std::size_t at) { return static_cast<std::int16_t>(path[at + 1] - u'0'); };
    size = {number(name), number(times)};
}

struct ParsedSkin {
    ControlState State;
    int Error = 0;    // of the parse that came last
    std::string Text; // and what it says

    ParsedSkin() = default;
    explicit ParsedSkin(std::u16string_view text) { Parse(text); }

    void Parse(std::u16string_view text) {
        const RaisedError raised = ErrorRaisedBy([&] {
            SkinParser(State, SkinFolder(u"C:\\host", State.Properties.SkinPath), SizeFromFileName)
                .Parse(text);
        });
        Error = raised.Number;
        Text = raised.Text;
    }

    const SkinRect& Rect(std::int32_t index) const { return State.SkinRects[index]; }
    const SkinIcon& Icon(std::int16_t index) const {
        return State.SkinIcons.Entries.at(static_cast<std::size_t>(index));
    }
};

} // namespace vantik
