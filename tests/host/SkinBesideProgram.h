// A skin's folder beside this program, where a control looks for it; gone again at the end.
#pragma once

#include <string>
#include <string_view>

namespace vantik {

class SkinBesideProgram {
public:
    SkinBesideProgram();
    ~SkinBesideProgram();
    SkinBesideProgram(const SkinBesideProgram&) = delete;
    SkinBesideProgram& operator=(const SkinBesideProgram&) = delete;

    const std::wstring& SkinPath() const noexcept { return name_; } // what the control is told
    std::wstring PathOf(std::wstring_view file) const;              // where it looks then

    void Write(std::wstring_view file, std::string_view bytes) const;

private:
    std::wstring name_, path_;
};

} // namespace vantik
