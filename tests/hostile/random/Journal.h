// What was done, in its order: the last lines for whoever looks at a crash, a digest of all of them to tell whether two runs
// were the same, and every line at once for whoever wants to follow.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace vantik {

class Journal {
public:
    Journal(std::uint64_t seed, bool prints) : seed_(seed), prints_(prints) {}

    void Number(long action) noexcept { action_ = action; }
    void Depth(int depth) noexcept { depth_ = depth; }
    void Note(const std::string& line);
    void Result(long result); // of the call that was noted last

    std::uint64_t Digest() const noexcept { return digest_; }

    // To the error stream; called also when the process is dying.
    void PrintEnd(const char* reason) const noexcept;

private:
    void Mix(const std::string& text) noexcept;

    static constexpr std::size_t Kept = 60;
    std::uint64_t seed_;
    bool prints_;
    long action_ = 0;
    int depth_ = 0;
    std::size_t lines_ = 0;
    std::array<std::string, Kept> last_;
    std::uint64_t digest_ = 0xCBF29CE484222325;
};

} // namespace vantik
