// What programs of the container ask their users about files.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/mDeclares.h"

namespace vantik {

struct FileKind {
    const wchar_t* Filter;    // pairs of a name and a pattern, each with its null
    const wchar_t* Extension; // of a name that was given without one
};

// Empty when the user thinks better of it.
std::optional<std::filesystem::path> AskForFile(HWND owner, const wchar_t* title, const FileKind& kind);
// A file that is there already is asked about, unless the caller sees to that.
enum class IfThere { Ask, Callers };
std::optional<std::filesystem::path> AskForNewFile(HWND owner, const wchar_t* title, const FileKind& kind,
                                                   const std::wstring& proposal, IfThere ifThere);

enum class Answer { Yes, No, Cancel };
Answer AskToSave(HWND owner, const wchar_t* title, const std::wstring& name);

} // namespace vantik
