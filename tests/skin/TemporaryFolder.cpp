#include "tests/skin/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <set>

namespace vantik::test {

namespace {

namespace fs = std::filesystem;

std::u16string FreshName() {
    static int count = 0;
    const auto name = "vantik-test-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(count++);
    return (fs::temp_directory_path() / name).u16string();
}

} // namespace

TemporaryFolder::TemporaryFolder() : path_(FreshName()) { fs::create_directories(path_); }

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void TemporaryFolder::MakeFolder(const std::u16string& name) const {
    fs::create_directories(path_ + u"\\" + name);
}

void TemporaryFolder::Write(const std::u16string& name, std::string_view bytes) const {
    std::ofstream file(fs::path(path_ + u"\\" + name), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string TemporaryFolder::Read(const std::u16string& name) const {
    std::ifstream file(fs::path(path_ + u"\\" + name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void TemporaryFolder::MakeOld(const std::u16string& folder) const {
    for (const auto& file : fs::directory_iterator(path_ + u"\\" + folder))
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

void TemporaryFolder::Remove(const std::u16string& name) const { fs::remove_all(path_ + u"\\" + name); }

std::string TemporaryFolder::Files(const std::u16string& folder) const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(path_ + u"\\" + folder))
        names.insert(entry.path().filename().string());
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : " ") + name;
    return text;
}

} // namespace vantik::test
