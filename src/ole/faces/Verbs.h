// What a host's menu offers to do with the control.
#pragma once

#include <span>

#include "platform/mDeclares.h"

namespace vantik {

class Control;

struct Verb {
    LONG Number;
    const wchar_t* Name;
    DWORD Attributes; // OLEVERBATTRIB
};

// By their numbers.
std::span<const Verb> Verbs() noexcept;

// Of those in the list; the properties are that of the pages.
enum VerbNumber : LONG { VerbEdit, VerbProperties, VerbNextTab, VerbPreviousTab, VerbAddTab, VerbAbout };

// As assignments to ActiveTab and TabCount, so that no event is raised: the host asked for it itself. Disabled tabs are
// passed over, and behind the last one comes the first.
void ActivateNextTab(Control& control);
void ActivatePreviousTab(Control& control);
void AddTab(Control& control); // behind the last one, and makes it the active one

} // namespace vantik
