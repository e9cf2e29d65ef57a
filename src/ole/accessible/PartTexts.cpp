#include "ole/accessible/PartTexts.h"

#include "base/Text.h"
#include "ole/accessible/TextNumbers.h"
#include "ole/host/ExtenderChild.h"
#include "platform/Module.h"

namespace vantik {

namespace {

// The text with what stands for its %1 and %2.
std::u16string Text(UINT number, std::u16string_view first, std::u16string_view second = {}) {
    const std::u16string pattern = ResourceText(number);
    std::u16string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const std::u16string_view mark = std::u16string_view(pattern).substr(i, 2);
        if (mark == u"%1") text += first;
        if (mark == u"%2") text += second;
        if (mark == u"%1" || mark == u"%2")
            ++i;
        else
            text += pattern[i];
    }
    return text;
}

// Without the marks that underline the letter behind them; two of them show as one.
std::u16string WithoutMarks(std::u16string_view caption) {
    std::u16string text;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
        text += caption[i];
    }
    return text;
}

// A name is no place for line ends.
std::u16string OnOneLine(std::u16string text) {
    for (char16_t& c : text)
        if (c < u' ') c = u' ';
    return text;
}

std::u16string TabName(const ControlState& state, std::int16_t tab) {
    const std::u16string& caption = state.Tabs(tab).Caption;
    std::u16string name = OnOneLine(MarksLetters(state) ? WithoutMarks(caption) : caption);
    const bool isBlank = name.find_first_not_of(u' ') == std::u16string::npos;
    return isBlank ? Text(TEXT_TAB_NUMBER, DecimalText(tab + 1)) : name;
}

std::u16string ExtenderName(const Control& control) {
    try {
        return ExtenderChild(control.Site.ExtendedControl()).Name();
    } catch (const RunTimeError&) {
        return {}; // a host that gives its controls none
    }
}

std::u16string ControlName(const Control& control) {
    std::u16string name = control.Ambient.DisplayName();
    if (name.empty()) name = ExtenderName(control);
    return name.empty() ? ResourceText(TEXT_TABS) : OnOneLine(std::move(name));
}

} // namespace

bool MarksLetters(const ControlState& state) noexcept {
    return !(static_cast<UINT>(state.Properties.CaptionPos) & DT_NOPREFIX);
}

std::u16string NameOf(const Control& control, const Part& part) {
    const ControlState& state = control.Engine.State();
    switch (part.Kind) {
    case PartKind::Row: return ControlName(control);
    case PartKind::Tab: return TabName(state, part.Tab);
    case PartKind::CloseButton: return Text(TEXT_CLOSE, TabName(state, part.Tab));
    case PartKind::PreviousButton: return ResourceText(TEXT_PREVIOUS);
    case PartKind::NextButton: return ResourceText(TEXT_NEXT);
    case PartKind::MenuButton: return ResourceText(TEXT_MENU);
    case PartKind::Page: break;
    }
    return TabName(state, state.Properties.ActiveTab);
}

std::u16string DescriptionOf(const Control& control, const Part& part) {
    if (part.Kind != PartKind::Tab) return {};
    const std::int16_t count = control.Engine.State().Properties.TabCount;
    return Text(TEXT_NUMBER_OF, DecimalText(part.Tab + 1), DecimalText(count));
}

std::u16string DefaultActionOf(const Part& part) {
    switch (part.Kind) {
    case PartKind::Row:
    case PartKind::Page: return {};
    case PartKind::Tab: return ResourceText(TEXT_SWITCH);
    default: return ResourceText(TEXT_PRESS);
    }
}

} // namespace vantik
