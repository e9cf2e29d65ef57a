// Where a skin comes from: its definition, which need not be saved yet, and the files that it names.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantik {

struct SkinFile {
    std::u16string Name; // as it is spelt on disk
    bool CanBeRead = false;
    std::vector<std::uint8_t> Bytes;
};

class SkinSource {
public:
    virtual ~SkinSource() = default;

    virtual std::string Name() const = 0;       // of the definition, as faults shall show it; UTF-8
    virtual std::string Definition() const = 0; // its bytes

    // The files of this name in the skin's folder; several where a file system tells apart names that differ in case
    // alone. A name with a path in it leads on from the folder.
    virtual std::vector<SkinFile> Find(const std::u16string& name) const = 0;
};

} // namespace vantik
