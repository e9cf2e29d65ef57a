// Which tab the user left open, kept in the registry of the user.
#pragma once

#include <string>

std::wstring ReadLastTab();
void WriteLastTab(const std::wstring& caption);
