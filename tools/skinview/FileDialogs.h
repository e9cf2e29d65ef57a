// What the program asks its user.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/FileDialog.h"

namespace vantik {

// Empty when the user thinks better of it.
std::optional<std::filesystem::path> AskForDefinition(HWND owner);
std::optional<std::filesystem::path> AskForNewDefinition(HWND owner);

Answer AskToSave(HWND owner, const std::wstring& name);
bool AskToTakeFromDisk(HWND owner, const std::wstring& name);
bool AskToOverwrite(HWND owner, const std::wstring& name);

void ShowMessage(HWND owner, const std::wstring& text, UINT icon);

} // namespace vantik
