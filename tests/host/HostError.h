// What goes wrong in the container and in the calls that it makes.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/mDeclares.h"

namespace vantik {

std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);

class HostError : public std::runtime_error {
public:
    explicit HostError(const std::string& text, HRESULT code = E_FAIL)
        : std::runtime_error(text), code_(code) {}
    HRESULT Code() const noexcept { return code_; }

private:
    HRESULT code_;
};

// Throws when the call failed; the text names it.
void Check(HRESULT result, std::string_view call);

// Runs a piece of the container inside a COM method: nothing is thrown through the caller.
template <class Piece>
HRESULT Guarded(Piece piece) noexcept {
    try {
        return piece();
    } catch (const HostError& error) {
        return error.Code();
    } catch (const std::exception&) {
        return E_FAIL;
    }
}

} // namespace vantik
