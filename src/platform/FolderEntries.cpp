#include "base/FolderEntries.h"

#include "base/Text.h"
#include "platform/mDeclares.h"

namespace vantik {

// The system is asked for the one entry; a pattern or a short name finds it under another one.
std::vector<std::u16string> EntriesNamed(const std::u16string& folder, const std::u16string& name) {
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = FindFirstFileW(AsWide(folder + u"\\" + name), &entry);
    if (search == INVALID_HANDLE_VALUE) return {};
    FindClose(search);
    const std::u16string spelt = FromWide(entry.cFileName);
    if (!EqualIgnoringCase(spelt, name)) return {};
    return {spelt};
}

} // namespace vantik
