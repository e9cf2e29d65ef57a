#include "check/FolderSource.h"

#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>
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
    const fs::path& Folder() const { return folder_; }
    FolderSource Source(std::u16string definition = u"SKIN.INI") const {
        return {folder_.u16string() + u"/", std::move(definition)};
    }

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
    const FolderSource source = skin.Source();
    CHECK(source.IsThere());
    CHECK(source.Definition() == "Start");
    CHECK(Found(source, u"Skin.bmp") == "bitmap");
    CHECK(Found(source, u"SKIN.BMP") == "bitmap");
    CHECK(source.Find(u"skin.bmp").at(0).Name == u"Skin.bmp");
    CHECK(source.Find(u"skin.bmp").at(0).CanBeRead);
}

TEST_CASE("A name with a path leads on from the folder, with separators of either kind") {
    const SkinFolderOnDisk skin;
    const FolderSource source = skin.Source();
    CHECK(Found(source, u"ART\\home.PNG") == "home");
    CHECK(Found(source, u"art/home.png") == "home");
    CHECK(Found(source, u".\\art\\..\\skin.bmp") == "bitmap");
    CHECK(Found(source, u"none\\home.png") == "none");
}

TEST_CASE("What is not there is not found, nor is a folder") {
    const SkinFolderOnDisk skin;
    const FolderSource source = skin.Source();
    CHECK(Found(source, u"skim.bmp") == "none");
    CHECK(Found(source, u"art") == "none");
    CHECK(Found(source, u"") == "none");
    const FolderSource missing = skin.Source(u"OTHER.INI");
    CHECK_FALSE(missing.IsThere());
    CHECK(missing.Definition().empty());
    CHECK_FALSE(skin.Source(u"Art").IsThere());
}

TEST_CASE("Neither a pattern nor a name that is cut short finds a file") {
    const SkinFolderOnDisk skin;
    skin.Write("a-long-name-of-a-picture.png", "icon");
    CHECK(Found(skin.Source(), u"a-long-name-of-a-picture.png") == "icon");
    for (const char16_t* name : {u"a-long*", u"A-LONG~1.PNG", u"skin.bm?"})
        CHECK(Found(skin.Source(), name) == "none");
}

TEST_CASE("A file is read whole, however large it is") {
    const SkinFolderOnDisk skin;
    const std::string text(300'001, 'x');
    skin.Write("Skin.bmp", text.c_str());
    CHECK(Found(skin.Source(), u"skin.bmp") == text);
    skin.Write("Skin.bmp", "");
    CHECK(skin.Source().Find(u"skin.bmp").at(0).CanBeRead);
    CHECK(Found(skin.Source(), u"skin.bmp").empty());
}

TEST_CASE("A skin in the current folder has no folder in its name") {
    const SkinFolderOnDisk skin;
    const fs::path before = fs::current_path();
    fs::current_path(skin.Folder());
    const FolderSource source(u"", u"SKIN.INI");
    const std::string found = Found(source, u"art\\home.png");
    fs::current_path(before);
    CHECK(source.Name() == "SKIN.INI");
    CHECK(found == "home");
}

TEST_CASE("The text of an editor stands in place of the saved one, among the same files") {
    const SkinFolderOnDisk skin;
    const EditedSource source(skin.Source(), "changed");
    CHECK(source.Definition() == "changed");
    CHECK(Found(source, u"skin.bmp") == "bitmap");
}

#ifndef _WIN32
TEST_CASE("Names that differ in case alone are all found") {
    const SkinFolderOnDisk skin;
    skin.Write("SKIN.BMP", "another");
    CHECK(Found(skin.Source(), u"skin.bmp") == "several");
}
#endif
