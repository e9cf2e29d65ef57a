// The commands, as the menu and the keys have them.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

enum Command : WORD {
    NewCommand = 100,
    OpenCommand,
    SaveCommand,
    ReloadCommand,
    ExitCommand,
    UndoCommand,
    RedoCommand,
    ZoomInCommand,
    ZoomOutCommand,
    FitCommand,
    NextPaneCommand,
    KeysCommand,
};

HMENU MakeMenu();
HACCEL MakeKeys();
void EnableCommand(HMENU menu, Command command, bool enable);

// What the keys do, for people.
extern const wchar_t* const KeysText;

} // namespace vantik
