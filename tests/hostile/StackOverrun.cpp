// A program that is guarded as the product is. Without an argument it ends with its guard value as its result; with one it
// writes beyond a buffer.
#include <cstddef>

extern "C" std::size_t __stack_chk_guard;

namespace {

[[gnu::noinline]] void Fill(volatile char* buffer, int size) {
    for (int i = 0; i < size; ++i) buffer[i] = 'x';
}

[[gnu::noinline]] void UseBuffer(int size) {
    volatile char buffer[16];
    Fill(buffer, size);
}

} // namespace

int main(int count, char**) {
    UseBuffer(count > 1 ? 64 : 16);
    return static_cast<int>(__stack_chk_guard >> 8 & 0xFFFFFF);
}
