// A skin that lies beside the program, with the property values that go with it.
#pragma once

#include "Com.h"

// The folder Skins\NAME: its SKIN.INI, and the lines "Property = Value" of its SETTINGS.TXT.
void UseSkin(_VantikFrameTab& control, const std::wstring& name);
