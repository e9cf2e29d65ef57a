#include "FileDialogs.h"

#include <array>

#include <commdlg.h>

namespace vantik {

namespace {

constexpr wchar_t Title[] = L"skinview";
constexpr wchar_t Kinds[] = L"Skin definitions (*.ini)\0*.ini\0All files\0*.*\0";

using Dialog = BOOL(WINAPI*)(OPENFILENAMEW*);

std::optional<std::filesystem::path> Ask(Dialog dialog, HWND owner, const wchar_t* title,
                                         const wchar_t* proposal, DWORD flags) {
    std::array<wchar_t, 4096> path = {};
    lstrcpynW(path.data(), proposal, static_cast<int>(path.size()));
    OPENFILENAMEW question = {};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = Kinds;
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.lpstrTitle = title;
    question.lpstrDefExt = L"ini";
    question.Flags = flags | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    if (!dialog(&question)) return std::nullopt;
    return path.data();
}

bool IsAgreed(HWND owner, const std::wstring& question) {
    return MessageBoxW(owner, question.c_str(), Title, MB_YESNO | MB_ICONWARNING) == IDYES;
}

} // namespace

std::optional<std::filesystem::path> AskForDefinition(HWND owner) {
    return Ask(GetOpenFileNameW, owner, L"Open a skin definition", L"", OFN_FILEMUSTEXIST);
}

std::optional<std::filesystem::path> AskForNewDefinition(HWND owner) {
    return Ask(GetSaveFileNameW, owner, L"New skin: choose an empty folder for it", L"SKIN.INI",
               OFN_PATHMUSTEXIST);
}

Answer AskToSave(HWND owner, const std::wstring& name) {
    const std::wstring text = name + L" has changes that are not saved. Save them?";
    switch (MessageBoxW(owner, text.c_str(), Title, MB_YESNOCANCEL | MB_ICONWARNING)) {
    case IDYES: return Answer::Yes;
    case IDNO: return Answer::No;
    default: return Answer::Cancel;
    }
}

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
