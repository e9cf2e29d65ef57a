// What can be placed on the pages of the control.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "host/Box.h"

namespace vantik {

enum class ChildKind { Label, TextBox, Button, CheckBox, List };

struct KindTraits {
    ChildKind Kind;
    const wchar_t* Keyword;  // in files
    const wchar_t* Tool;     // in the toolbox
    const wchar_t* NameStem; // a number follows
    int Width, Height;       // of one that was dropped by a press alone, at 96 dots per inch
};

inline constexpr std::array<KindTraits, 5> AllKinds = {{
    {ChildKind::Label, L"Label", L"Label", L"Label", 80, 20},
    {ChildKind::TextBox, L"TextBox", L"Text box", L"Text", 120, 24},
    {ChildKind::Button, L"Button", L"Button", L"Button", 88, 28},
    {ChildKind::CheckBox, L"CheckBox", L"Check box", L"Check", 120, 20},
    {ChildKind::List, L"List", L"List", L"List", 120, 80},
}};

constexpr const KindTraits& TraitsOf(ChildKind kind) noexcept {
    return AllKinds[static_cast<std::size_t>(kind)];
}

// The place is in twips and relative to the control, its tab encoded in Left as the control does it.
struct Child {
    ChildKind Kind = ChildKind::Label;
    std::wstring Name;
    Box Place;
    std::wstring Text; // of a list: its lines, with semicolons between them

    friend bool operator==(const Child&, const Child&) = default;
};

// The first one of its kind that no child has.
std::wstring FreeName(ChildKind kind, const std::vector<Child>& children);

// Names are the same in capital letters and small ones.
bool SameName(std::wstring_view a, std::wstring_view b) noexcept;

std::vector<std::wstring> LinesOf(std::wstring_view listText);

} // namespace vantik
