// Variables of which each thread has a copy.
//
// The compiler's own way takes a thread-local index and memory when a thread uses such a variable first: it ends the
// process when there is none, and gives nothing back when the module goes. Here it is the loader's affair: a thread has
// its copies before it runs any code of the module, and they go with the module.
#pragma once

#include <cstddef>

// The beginning of the section that the loader copies, and the number of the module's copy among those of a thread.
extern "C" std::byte _tls_start[];
extern "C" unsigned long _tls_index;

// Stands before a variable of constant value, which is what the copies begin with.
#define VANTIK_COPIED_FOR_EACH_THREAD [[gnu::section(".tls$"), gnu::used]]

namespace vantik {

inline std::byte** CopiesOfThisThread() noexcept {
    std::byte** copies = nullptr;
#ifdef _WIN64
    asm("movq %%gs:0x58, %0" : "=r"(copies));
#else
    asm("movl %%fs:0x2C, %0" : "=r"(copies));
#endif
    return copies;
}

template <class Variable>
Variable& OfThisThread(Variable& original) noexcept {
    const auto offset = reinterpret_cast<std::byte*>(&original) - _tls_start;
    return *reinterpret_cast<Variable*>(CopiesOfThisThread()[_tls_index] + offset);
}

} // namespace vantik
