#include "host/FileDialog.h"

#include <array>

#include <commdlg.h>

namespace vantik {

namespace {

using Dialog = BOOL(WINAPI*)(OPENFILENAMEW*);

std::optional<std::filesystem::path> Ask(Dialog dialog, HWND owner, const wchar_t* title,
                                         const FileKind& kind, const wchar_t* proposal, DWORD flags) {
    std::array<wchar_t, 4096> path = {};
    lstrcpynW(path.data(), proposal, static_cast<int>(path.size()));
    OPENFILENAMEW question = {};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = kind.Filter;
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.lpstrTitle = title;
    question.lpstrDefExt = kind.Extension;
    question.Flags = flags | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    if (!dialog(&question)) return std::nullopt;
    return path.data();
}

} // namespace

std::optional<std::filesystem::path> AskForFile(HWND owner, const wchar_t* title, const FileKind& kind) {
    return Ask(GetOpenFileNameW, owner, title, kind, L"", OFN_FILEMUSTEXIST);
}

std::optional<std::filesystem::path> AskForNewFile(HWND owner, const wchar_t* title, const FileKind& kind,
                                                   const std::wstring& proposal, IfThere ifThere) {
    const DWORD question = ifThere == IfThere::Ask ? OFN_OVERWRITEPROMPT : 0;
    return Ask(GetSaveFileNameW, owner, title, kind, proposal.c_str(), OFN_PATHMUSTEXIST | question);
}

Answer AskToSave(HWND owner, const wchar_t* title, const std::wstring& name) {
    const std::wstring text = name + L" has changes that are not saved. Save them?";
    switch (MessageBoxW(owner, text.c_str(), title, MB_YESNOCANCEL | MB_ICONWARNING)) {
    case IDYES: return Answer::Yes;
    case IDNO: return Answer::No;
    default: return Answer::Cancel;
    }
}

} // namespace vantik
