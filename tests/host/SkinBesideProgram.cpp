#include "host/SkinBesideProgram.h"

#include <filesystem>
#include <fstream>

#include "host/BuiltControl.h"
#include "platform/mDeclares.h"

namespace vantik {

SkinBesideProgram::SkinBesideProgram()
    : name_(L"skin-" + std::to_wstring(GetCurrentProcessId())), path_(ProgramFolder() + L"\\" + name_) {
    std::filesystem::create_directory(path_);
}

SkinBesideProgram::~SkinBesideProgram() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::wstring SkinBesideProgram::PathOf(std::wstring_view file) const { return (path_ + L"\\").append(file); }

void SkinBesideProgram::Write(std::wstring_view file, std::string_view bytes) const {
    std::ofstream stream(std::filesystem::path(PathOf(file)), std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace vantik
