#include "hostile/random/Journal.h"

#include <cstdio>

namespace vantik {

// FNV-1a.
void Journal::Mix(const std::string& text) noexcept {
    for (const char letter : text) {
        digest_ ^= static_cast<unsigned char>(letter);
        digest_ *= 0x100000001B3;
    }
}

void Journal::Note(const std::string& line) {
    std::string whole =
        std::to_string(action_) + ": " + std::string(static_cast<std::size_t>(depth_) * 2, ' ');
    whole += line;
    Mix(whole);
    if (prints_) {
        std::puts(whole.c_str());
        std::fflush(stdout);
    }
    last_[lines_++ % Kept] = std::move(whole);
}

void Journal::Result(long result) {
    char text[16];
    std::snprintf(text, sizeof text, "  = %08lX", static_cast<unsigned long>(result));
    Note(text);
}

void Journal::PrintEnd(const char* reason) const noexcept {
    std::fprintf(stderr, "random_host: seed %llu, action %ld: %s\n", static_cast<unsigned long long>(seed_),
                 action_, reason);
    for (std::size_t i = lines_ < Kept ? 0 : lines_ - Kept; i < lines_; ++i)
        std::fprintf(stderr, "    %s\n", last_[i % Kept].c_str());
    std::fflush(stderr);
}

} // namespace vantik
