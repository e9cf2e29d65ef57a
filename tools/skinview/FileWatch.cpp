#include "FileWatch.h"

namespace vantik {

FileWatch::Look FileWatch::LookAt(const std::filesystem::path& file) {
    const FileIdentity identity = IdentityOf(file.u16string());
    return {identity.IsFile, identity.Size, identity.Written};
}

std::vector<FileWatch::Look> FileWatch::LookAtAll() const {
    std::vector<Look> looks;
    for (const auto& file : files_) looks.push_back(LookAt(file));
    return looks;
}

void FileWatch::Watch(const std::vector<std::filesystem::path>& files) {
    files_ = files;
    told_ = seen_ = LookAtAll();
}

bool FileWatch::Changed() {
    std::vector<Look> now = LookAtAll();
    const bool isQuiet = now == seen_;
    seen_ = std::move(now);
    if (!isQuiet || seen_ == told_) return false;
    told_ = seen_;
    return true;
}

} // namespace vantik
