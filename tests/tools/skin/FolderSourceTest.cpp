#include "tools/skin/FolderSource.h"

#include <doctest/doctest.h>

#include <chrono>
#include <fstream>

using namespace vantik;

namespace {

namespace fs = std::filesystem;

class SkinFolderOnDisk {
public:
    SkinFolderOnDisk() {
        fs::create_directories(folder_ / "Art");
        Write("SKIN.INI", "Start");
        Write("Skin.bmp", "bitmap");
        Write("Art/Home.png", "home");
    }
    ~SkinFolderOnDisk() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    void Write(const char* name, const char* text) const {
        std::ofstream(folder_ / name, std::ios::binary) << text;
    }
    fs::path Definition() const { return folder_ / "SKIN.INI"; }

private:
    fs::path folder_ =
        "folder-source-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count());
};

std::string TextOf(const SkinFile& file) { return {file.Bytes.begin(), file.Bytes.end()}; }

// The text of the only file of that name; "none" and "several" for other counts.
std::string Found(const FolderSource& source, const std::u16string& name) {
    const auto files = source.Find(name);
    return files.empty() ? "none" : files.size() > 1 ? "several" : TextOf(files.front());
}

} // namespace

TEST_CASE("Files are found in the folder of the definition whatever the case of their names") {
    const SkinFolderOnDisk skin;
    const FolderSource source(skin.Definition());
    CHECK(source.IsThere());
    CHECK(source.Definition() == "Start");
    CHECK(Found(source, u"Skin.bmp") == "bitmap");
    CHECK(Found(source, u"SKIN.BMP") == "bitmap");
    CHECK(source.Find(u"skin.bmp").at(0).Name == u"Skin.bmp");
    CHECK(source.Find(u"skin.bmp").at(0).CanBeRead);
}

TEST_CASE("A name with a path leads on from the folder, with separators of either kind") {
    const SkinFolderOnDisk skin;
    const FolderSource source(skin.Definition());
    CHECK(Found(source, u"ART\\home.PNG") == "home");
    CHECK(Found(source, u"art/home.png") == "home");
    CHECK(Found(source, u".\\art\\..\\skin.bmp") == "bitmap");
    CHECK(Found(source, u"none\\home.png") == "none");
}

TEST_CASE("What is not there is not found, nor is a folder") {
    const SkinFolderOnDisk skin;
    const FolderSource source(skin.Definition());
    CHECK(Found(source, u"skim.bmp") == "none");
    CHECK(Found(source, u"art") == "none");
    CHECK(Found(source, u"") == "none");
    const FolderSource missing(skin.Definition().parent_path() / "OTHER.INI");
    CHECK_FALSE(missing.IsThere());
    CHECK(missing.Definition().empty());
    CHECK_FALSE(FolderSource(skin.Definition().parent_path() / "Art").IsThere());
}

TEST_CASE("The text of an editor stands in place of the saved one, among the same files") {
    const SkinFolderOnDisk skin;
    const EditedSource source(skin.Definition(), "changed");
    CHECK(source.Definition() == "changed");
    CHECK(Found(source, u"skin.bmp") == "bitmap");
}

#ifndef _WIN32
TEST_CASE("Names that differ in case alone are all found") {
    const SkinFolderOnDisk skin;
    skin.Write("SKIN.BMP", "another");
    CHECK(Found(FolderSource(skin.Definition()), u"skin.bmp") == "several");
}
#endif
