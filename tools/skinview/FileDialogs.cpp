#include "FileDialogs.h"

namespace vantik {

namespace {

constexpr wchar_t Title[] = L"skinview";
constexpr FileKind Definition = {L"Skin definitions (*.ini)\0*.ini\0All files\0*.*\0", L"ini"};

bool IsAgreed(HWND owner, const std::wstring& question) {
    return MessageBoxW(owner, question.c_str(), Title, MB_YESNO | MB_ICONWARNING) == IDYES;
}

} // namespace

std::optional<std::filesystem::path> AskForDefinition(HWND owner) {
    return AskForFile(owner, L"Open a skin definition", Definition);
}

std::optional<std::filesystem::path> AskForNewDefinition(HWND owner) {
    return AskForNewFile(owner, L"New skin: choose an empty folder for it", Definition, L"SKIN.INI",
                         IfThere::Callers);
}

Answer AskToSave(HWND owner, const std::wstring& name) { return AskToSave(owner, Title, name); }

bool AskToTakeFromDisk(HWND owner, const std::wstring& name) {
    return IsAgreed(owner,
                    name +
                        L" was changed by another program, and you have changes that are not saved.\n\n"
                        L"Read it again? Undo brings your changes back.");
}

bool AskToOverwrite(HWND owner, const std::wstring& name) {
    return IsAgreed(owner, name + L" was changed by another program. Overwrite what that wrote?");
}

void ShowMessage(HWND owner, const std::wstring& text, UINT icon) {
    MessageBoxW(owner, text.c_str(), Title, icon);
}

} // namespace vantik
