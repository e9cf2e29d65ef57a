#include "platform/FileStore.h"

#include <doctest/doctest.h>

#include <string>

namespace vantik {

namespace {

constexpr std::size_t MiB = 1 << 20;

FileIdentity IdentityWith(std::uint64_t written, std::uint64_t size = 10) {
    FileIdentity identity;
    identity.IsFile = identity.ShowsChanges = true;
    identity.Size = size;
    identity.Written = identity.Created = written;
    return identity;
}

const FileIdentity Old = IdentityWith(1);
const std::u16string Path = u"C:\\skin\\a.png";

std::u16string PathOf(int number) {
    return u"C:\\skin\\" + std::u16string(1, static_cast<char16_t>(u'a' + number));
}

void Keep(const std::u16string& path, int value, std::size_t bytes = 100,
          FileContent kind = FileContent::Icon) {
    KeepContent(path, Old, kind, std::make_shared<const int>(value), bytes);
}

// 0 when nothing is kept.
int Kept(const std::u16string& path, const FileIdentity& identity = Old,
         FileContent kind = FileContent::Icon) {
    const SharedContent content = FindContent(path, identity, kind);
    return content ? *static_cast<const int*>(content.get()) : 0;
}

} // namespace

TEST_CASE("what was made of a file is kept while somebody uses the store, and goes with the last one") {
    Keep(Path, 1);
    CHECK(Kept(Path) == 0);
    std::weak_ptr<const int> content;
    {
        const FileStoreUser first;
        {
            const FileStoreUser second;
            const auto made = std::make_shared<const int>(2);
            content = made;
            KeepContent(Path, Old, FileContent::Icon, made, 100);
        }
        CHECK(Kept(Path) == 2);
        CHECK(KeptBytes() >= 100);
    }
    CHECK(content.expired());
    CHECK(KeptBytes() == 0);
    const FileStoreUser later;
    CHECK(Kept(Path) == 0);
}

TEST_CASE("it is found again under the same path, of the same kind, and while the file is what it was") {
    const FileStoreUser user;
    Keep(Path, 1);
    Keep(Path, 2, 100, FileContent::IconSize);
    Keep(PathOf(1), 3);
    CHECK(Kept(Path) == 1);
    CHECK(Kept(Path, Old, FileContent::IconSize) == 2);
    CHECK(Kept(Path, Old, FileContent::Bitmap) == 0);
    CHECK(Kept(PathOf(1)) == 3);
    CHECK(Kept(PathOf(2)) == 0);
    CHECK(Kept(Path, IdentityWith(2)) == 0);
    CHECK(Kept(Path, IdentityWith(1, 11)) == 0);
    FileIdentity written = Old, made = Old;
    written.Written = 2;
    made.Created = 2;
    CHECK(Kept(Path, written) == 0);
    CHECK(Kept(Path, made) == 0);
    CHECK(Kept(Path, FileIdentity()) == 0);
}

TEST_CASE("what was made of an earlier file goes when something of the present one is kept") {
    const FileStoreUser user;
    Keep(Path, 1, 1000);
    Keep(Path, 2, 1000, FileContent::IconSize);
    KeepContent(Path, IdentityWith(2), FileContent::Icon, std::make_shared<const int>(3), 10);
    CHECK(Kept(Path, IdentityWith(2)) == 3);
    CHECK(Kept(Path, Old, FileContent::IconSize) == 0);
    CHECK(KeptBytes() < 1000);
}

TEST_CASE("a file whose changes might not show is not kept, nor one whose path is relative") {
    const FileStoreUser user;
    FileIdentity fresh = Old, missing = Old;
    fresh.ShowsChanges = false;
    missing.IsFile = false;
    for (const FileIdentity& identity : {fresh, missing})
        KeepContent(Path, identity, FileContent::Icon, std::make_shared<const int>(1), 100);
    Keep(u"a.png", 1);
    Keep(u"C:a.png", 1);
    Keep(u"", 1);
    CHECK(KeptBytes() == 0);
    Keep(Path, 1);
    CHECK(Kept(Path, fresh) == 0);
}

TEST_CASE("of too much what was not needed for the longest time goes first") {
    const FileStoreUser user;
    for (int i = 0; i < 15; ++i) Keep(PathOf(i), i + 1, MiB);
    CHECK(Kept(PathOf(0)) == 1); // needed again
    Keep(PathOf(15), 16, MiB);
    Keep(PathOf(16), 17, MiB);
    CHECK(KeptBytes() <= MostKeptBytes);
    CHECK(Kept(PathOf(0)) == 1);
    CHECK(Kept(PathOf(1)) == 0);
    CHECK(Kept(PathOf(2)) == 0);
    for (int i = 3; i <= 16; ++i) CHECK(Kept(PathOf(i)) == i + 1);
}

TEST_CASE("what alone is too much leaves the others where they are") {
    const FileStoreUser user;
    Keep(Path, 1);
    for (const std::size_t tooMuch : {MostKeptBytes, MostKeptBytes + 1}) {
        Keep(PathOf(1), 2, tooMuch);
        CHECK(Kept(PathOf(1)) == 0);
    }
    CHECK(Kept(Path) == 1);
}

TEST_CASE("any number of small files stay within the bound, their paths included") {
    const FileStoreUser user;
    const std::u16string folder = u"C:\\" + std::u16string(30000, u'x') + u"\\";
    for (int i = 0; i < 1000; ++i) Keep(folder + std::u16string(1, static_cast<char16_t>(256 + i)), 1, 0);
    CHECK(KeptBytes() <= MostKeptBytes);
    CHECK(Kept(folder + std::u16string(1, static_cast<char16_t>(256))) == 0);
    CHECK(Kept(folder + std::u16string(1, static_cast<char16_t>(256 + 999))) == 1);
}

TEST_CASE("what somebody holds stays with him after it went from the store") {
    SharedContent held;
    {
        const FileStoreUser user;
        Keep(Path, 5);
        held = FindContent(Path, Old, FileContent::Icon);
    }
    CHECK(*static_cast<const int*>(held.get()) == 5);
}

TEST_CASE("what cannot be made, or not all of it, is made again each time") {
    struct Number {
        int Value;
        std::size_t Memory() const { return sizeof *this; }
    };
    const FileStoreUser user;
    int makings = 0;
    const auto get = [&](int value) {
        return Shared<Number>(Path, Old, FileContent::Icon, [&]() -> std::shared_ptr<const Number> {
            ++makings;
            if (value < 0) throw value;
            return value ? std::make_shared<const Number>(Number{value}) : nullptr;
        });
    };
    CHECK_THROWS_AS(get(-1), int);
    CHECK(!get(0));
    const auto doubtful = Shared<Number>(Path, Old, FileContent::Icon, [] {
        TellDoubt();
        return std::make_shared<const Number>(Number{5});
    });
    CHECK(doubtful->Value == 5);
    CHECK(get(7)->Value == 7);
    CHECK(makings == 3);
    CHECK(get(8)->Value == 7);
    CHECK(makings == 3);
}

} // namespace vantik
