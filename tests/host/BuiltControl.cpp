#include "host/BuiltControl.h"

#include <filesystem>

#include "host/HostError.h"

namespace vantik {

namespace {

constexpr const wchar_t* Places[] = {L"VantikFrameTab.ocx", L"src\\ole\\VantikFrameTab.ocx"};

} // namespace

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path().wstring();
}

std::wstring FindBuiltControl() {
    const std::filesystem::path start = ProgramFolder();
    for (std::filesystem::path folder = start; folder.has_relative_path(); folder = folder.parent_path()) {
        for (const wchar_t* place : Places) {
            if (std::filesystem::exists(folder / place)) return (folder / place).wstring();
        }
    }
    throw HostError("VantikFrameTab.ocx is neither in " + ToUtf8(start.wstring()) +
                    " nor in a build tree around it");
}

} // namespace vantik
