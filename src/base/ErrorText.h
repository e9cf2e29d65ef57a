// What errors say: texts in pieces, put together only once something went wrong.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/RunTimeError.h"

namespace vantik {

// A piece between quotation marks, without its end where it is very long.
struct Quoted {
    std::u16string_view Text;
};

// A path as people write it: names that were joined have doubled backslashes in it.
struct PathText {
    std::u16string_view Path;
};

void AppendPiece(std::u16string& text, std::u16string_view piece);
void AppendPiece(std::u16string& text, std::int32_t number);
void AppendPiece(std::u16string& text, Quoted piece);
void AppendPiece(std::u16string& text, PathText piece);

// Empty where there is no memory for it: an error then has its number's own text.
template <class... Pieces>
std::u16string ErrorText(const Pieces&... pieces) noexcept {
    try {
        std::u16string text;
        (AppendPiece(text, pieces), ...);
        return text;
    } catch (...) {
        return {};
    }
}

template <class... Pieces>
[[noreturn]] void Raise(RunTimeErrorNumber number, const Pieces&... pieces) {
    throw RunTimeError(number, ErrorText(pieces...));
}

// Runs an operation. An error of it goes on with the text that `explain` makes of it.
template <class Operation, class Explain>
decltype(auto) Explaining(Operation operation, Explain explain) {
    try {
        return operation();
    } catch (RunTimeError& error) {
        error.Explain(explain(error));
        throw;
    }
}

} // namespace vantik
