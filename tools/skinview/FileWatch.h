// Whether files were changed, by looking at them: that works on every drive and under every system.
#pragma once

#include <filesystem>
#include <vector>

#include "platform/FileIdentity.h"

namespace vantik {

class FileWatch {
public:
    // From now on; files that are not there count, too: they may come.
    void Watch(const std::vector<std::filesystem::path>& files);

    // Since the last call, or since they are watched. A change is told when the files are left in peace: a program that
    // writes them is at it for a while.
    bool Changed();

private:
    struct Look {
        bool IsFile = false;
        std::uint64_t Size = 0, Written = 0;
        friend bool operator==(const Look&, const Look&) = default;
    };
    static Look LookAt(const std::filesystem::path& file);
    std::vector<Look> LookAtAll() const;

    std::vector<std::filesystem::path> files_;
    std::vector<Look> told_, seen_;
};

} // namespace vantik
