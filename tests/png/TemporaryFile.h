// A file in the current folder that is gone again at the end of the test.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace vantik {

class TemporaryFile {
public:
    TemporaryFile(std::string name, const std::vector<std::uint8_t>& bytes) : name_(std::move(name)) {
        std::FILE* file = std::fopen(name_.c_str(), "wb");
        if (!bytes.empty()) std::fwrite(bytes.data(), 1, bytes.size(), file); // data() of none may be null
        std::fclose(file);
    }
    ~TemporaryFile() { std::remove(name_.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    std::u16string Path() const { return {name_.begin(), name_.end()}; }

    // On Windows an open file cannot be removed; elsewhere this says nothing.
    bool Remove() const { return std::remove(name_.c_str()) == 0; }

private:
    std::string name_;
};

} // namespace vantik
