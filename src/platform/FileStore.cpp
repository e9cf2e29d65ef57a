#include "platform/FileStore.h"

#include <algorithm>
#include <array>
#include <map>
#include <new>
#include <utility>

#include "platform/Lock.h"

namespace vantik {

namespace {

class Store {
public:
    SharedContent Find(const std::u16string& path, const FileIdentity& identity, FileContent kind) noexcept {
        const auto found = files_.find(path);
        if (found == files_.end() || !identity.IsStill(found->second.Identity)) return nullptr;
        found->second.LastUse = ++uses_;
        return found->second.Of(kind).Content;
    }

    void Keep(const std::u16string& path, const FileIdentity& identity, FileContent kind,
              SharedContent content, std::size_t bytes) {
        const std::size_t all = bytes + path.size() * sizeof path[0] + sizeof(File);
        if (all > MostKeptBytes) return;
        File& file = files_[path];
        if (!identity.IsStill(file.Identity)) Forget(file);
        file.Identity = identity;
        file.LastUse = ++uses_;
        Replace(file.Of(kind), {std::move(content), all});
        while (bytes_ > MostKeptBytes) DropOldest();
    }

    std::size_t Bytes() const noexcept { return bytes_; }

private:
    struct Kept {
        SharedContent Content;
        std::size_t Bytes = 0;
    };
    struct File {
        FileIdentity Identity;
        std::uint64_t LastUse = 0;
        std::array<Kept, FileContentCount> Contents;

        Kept& Of(FileContent kind) noexcept { return Contents[static_cast<std::size_t>(kind)]; }
    };

    void Replace(Kept& old, Kept kept) noexcept {
        bytes_ += kept.Bytes - old.Bytes;
        old = std::move(kept);
    }

    void Forget(File& file) noexcept {
        for (Kept& kept : file.Contents) Replace(kept, {});
    }

    void DropOldest() noexcept {
        const auto isOlder = [](const auto& one, const auto& other) {
            return one.second.LastUse < other.second.LastUse;
        };
        const auto oldest = std::min_element(files_.begin(), files_.end(), isOlder);
        Forget(oldest->second);
        files_.erase(oldest);
    }

    std::map<std::u16string, File> files_; // by full path
    std::size_t bytes_ = 0;
    std::uint64_t uses_ = 0;
};

SRWLOCK storeLock = SRWLOCK_INIT; // controls of several apartments use it at once
std::unique_ptr<Store> store;     // made for the first content, and only while there are users
int users = 0;

Store& NeedStore() {
    if (!store) store = std::make_unique<Store>();
    return *store;
}

// The same text stands for the same file at all times only when it begins with a drive or a server.
bool IsFullPath(const std::u16string& path) noexcept {
    return path.size() > 2 && ((path[1] == u':' && path[2] == u'\\') || path.starts_with(u"\\\\"));
}

} // namespace

FileStoreUser::FileStoreUser() noexcept {
    const Lock lock(storeLock);
    ++users;
}

FileStoreUser::~FileStoreUser() {
    std::unique_ptr<Store> last; // goes when the lock is free again
    const Lock lock(storeLock);
    if (--users == 0) last = std::move(store);
}

SharedContent FindContent(const std::u16string& path, const FileIdentity& identity,
                          FileContent kind) noexcept {
    const Lock lock(storeLock);
    return store ? store->Find(path, identity, kind) : nullptr;
}

void KeepContent(const std::u16string& path, const FileIdentity& identity, FileContent kind,
                 SharedContent content, std::size_t bytes) noexcept {
    if (!identity.IsFile || !identity.ShowsChanges || !IsFullPath(path)) return;
    const Lock lock(storeLock);
    if (users == 0) return;
    try {
        NeedStore().Keep(path, identity, kind, std::move(content), bytes);
    } catch (const std::bad_alloc&) { // the file will be read again
    }
}

std::size_t KeptBytes() noexcept {
    const Lock lock(storeLock);
    return store ? store->Bytes() : 0;
}

} // namespace vantik
