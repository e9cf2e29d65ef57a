#include "base/FolderEntries.h"

#include <algorithm>
#include <filesystem>

#include "base/Text.h"

namespace vantik {

namespace fs = std::filesystem;

std::vector<std::u16string> EntriesNamed(const std::u16string& folder, const std::u16string& name) {
    std::vector<std::u16string> found;
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error))
        if (EqualIgnoringCase(each->path().filename().u16string(), name))
            found.push_back(each->path().filename().u16string());
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace vantik
