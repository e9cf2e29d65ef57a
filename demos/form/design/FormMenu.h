// The designer's commands, as the menu and the keys have them.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

enum class DesignCommand : WORD {
    New = 100,
    Open,
    Save,
    SaveAs,
    Exit,
    Undo,
    Redo,
    Delete,
    Properties,
    Run,
    End,
    Keys,
};

// The control's own verbs follow from here on, by their numbers.
inline constexpr WORD FirstVerb = 200, LastVerb = 299;

HMENU MakeFormMenu();
HACCEL MakeFormKeys();
void EnableCommand(HMENU menu, DesignCommand command, bool enable);

// What the control says that can be done with it.
void AddVerbs(HMENU menu, IOleObject& control);

// What pointer and keys do, for people.
extern const wchar_t* const DesignKeysText;

} // namespace vantik
