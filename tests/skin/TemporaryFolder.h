// A folder of the test's own, gone again at its end with everything in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/mDeclares.h"

namespace vantik::test {

class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::u16string& Path() const noexcept { return path_; }

    // Names are relative to the folder.
    void MakeFolder(const std::u16string& name) const;
    void Write(const std::u16string& name, std::string_view bytes) const;
    std::string Read(const std::u16string& name) const; // empty when there is no such file
    // As if all in the folder had been written an hour ago.
    void MakeOld(const std::u16string& folder) const;
    void Remove(const std::u16string& name) const;
    // All files in a folder by name, in alphabetical order, such as "a.png b.bmp".
    std::string Files(const std::u16string& folder) const;

private:
    std::u16string path_;
};

} // namespace vantik::test
