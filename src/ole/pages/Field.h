// A property on a page: which control of the dialog shows it, and how.
#pragma once

#include <optional>
#include <string>

#include "model/Properties.h"
#include "platform/mDeclares.h"

namespace vantik {

enum class FieldKind : std::uint8_t {
    Text,   // as it is; also in a list that takes other texts, too
    Choice, // the number of an entry in a list
    Flag    // a box with three states
};

struct Field {
    WORD Control; // of the dialog
    Property Shown;
    FieldKind Kind;

    const wchar_t* Name() const noexcept { return AsWide(InfoOf(Shown).Key); }
};

// Nothing where several objects differ: the field is empty then. A value that the list lacks shows as nothing, too.
void ShowValue(HWND dialog, const Field& field, const std::optional<std::u16string>& value);

// What the user made of the field.
std::u16string EnteredValue(HWND dialog, const Field& field);

// The entry just chosen in a list that takes other texts, too: the list does not show it yet.
std::u16string ChosenText(HWND dialog, const Field& field);

// The next state of a box that was pressed: a value, never again the mark of a difference.
void Toggle(HWND dialog, const Field& field) noexcept;

std::u16string WindowText(HWND window);

// Text that is there already stays, with the caret in it.
void ShowText(HWND window, const std::u16string& text);

} // namespace vantik
