// Where the files of a skin lie.
#pragma once

#include <string>
#include <string_view>

namespace vantik {

// The host folder (without a trailing backslash) and the skin's folder in it, joined with a backslash whatever the
// names end with: the usual "Skin\" gives a doubled one, which the file system accepts.
class SkinFolder {
public:
    SkinFolder(std::u16string_view hostFolder, std::u16string_view skinPath) {
        path_.append(hostFolder).append(u"\\").append(skinPath);
    }

    const std::u16string& Path() const noexcept { return path_; }
    std::u16string PathOf(std::u16string_view file) const { return (path_ + u"\\").append(file); }

private:
    std::u16string path_;
};

} // namespace vantik
