#include "WorkingSkin.h"

#include <cwchar>
#include <filesystem>

#include "host/BuiltControl.h"
#include "host/HostError.h"
#include "tools/skinview/model/LocalNames.h"

namespace vantik {

namespace {

void RemoveFolder(const std::filesystem::path& folder) noexcept {
    std::error_code ignored; // it goes with the program at last
    std::filesystem::remove_all(folder, ignored);
}

std::string_view TextOf(const std::vector<std::uint8_t>& bytes) noexcept {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool IsAlive(DWORD process) noexcept {
    const HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
    if (!handle)
        return GetLastError() != ERROR_INVALID_PARAMETER; // the answer where there is none of that number
    DWORD code = 0;
    const bool isRunning = GetExitCodeProcess(handle, &code) && code == STILL_ACTIVE;
    CloseHandle(handle);
    return isRunning;
}

// Such as "skin-120", of process 120.
bool IsAbandoned(const std::wstring& folder) noexcept {
    constexpr std::wstring_view beginning = L"skin-";
    if (!folder.starts_with(beginning)) return false;
    wchar_t* end = nullptr;
    const unsigned long process = std::wcstoul(folder.c_str() + beginning.size(), &end, 10);
    return process != 0 && *end == L'\0' && !IsAlive(process);
}

} // namespace

WorkingSkin::WorkingSkin() {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(ProgramFolder(), error))
        if (entry.is_directory(error) && IsAbandoned(entry.path().filename().wstring()))
            RemoveFolder(entry.path());
}

std::wstring WorkingSkin::Name(const char* kind) const { return FromUtf8(kind + std::to_string(number_)); }

void WorkingSkin::Write(const std::wstring& name, std::string_view bytes) const {
    place_.Write(folder_ + L"\\" + name, bytes);
}

void WorkingSkin::TakeFiles(const SkinSource& source, const DefinitionText& definition) {
    ++number_;
    if (!folder_.empty()) RemoveFolder(place_.PathOf(folder_));
    folder_ = Name("files-");
    skinPath_ = place_.SkinPath() + L"\\" + folder_;
    std::filesystem::create_directory(place_.PathOf(folder_));
    for (const LocalFile& file : WithLocalNames(definition).Files)
        for (const SkinFile& found : source.Find(file.Named))
            if (found.CanBeRead) Write(FromUtf8(file.Local), TextOf(found.Bytes));
}

std::wstring WorkingSkin::PutDefinition(const std::string& local) {
    std::wstring name = Name("skin-") + L".ini";
    Write(name, local);
    return name;
}

std::wstring WorkingSkin::Put(const DefinitionText& definition) {
    ++number_;
    return PutDefinition(WithLocalNames(definition).Definition);
}

std::wstring WorkingSkin::Put(const LitSkin& skin) {
    ++number_;
    const std::wstring bitmap = Name("lit-");
    Write(bitmap, BitmapFileOf(skin.Bitmap));
    const LocalSkin local = WithLocalNames(DefinitionText(skin.Definition));
    return PutDefinition(WithBitmap(DefinitionText(local.Definition), ToUtf8(bitmap)));
}

} // namespace vantik
