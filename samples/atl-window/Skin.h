// A skin that lies beside the program, with the property values that go with it.
#pragma once

#include "Object.h"

// The folder Skins\NAME: its SKIN.INI, and the lines "Property = Value" of its SETTINGS.TXT.
void UseSkin(const Object& control, const std::wstring& name);
