// A control that edits a skin's folder, and the page "Skin" on it.
#pragma once

#include <filesystem>

#include "host/SkinBesideProgram.h"
#include "ole/pages/PageUnderTest.h"
#include "tests/check/SkinWithoutFaults.h"

namespace vantik {

struct SkinPageTest {
    SkinBesideProgram Skin;
    LooseControl Control;
    PageUnderTest Page{SkinPageId};

    void Edit() const { Page.Edit({Control.Object()}); }
    std::wstring Status() const { return Page.Text(PAGE_STATUS); }
};

// All files of the skin without faults, below a folder of that name in the skin's where there is one.
inline void WriteSkin(const SkinBesideProgram& skin, const std::wstring& folder = {}) {
    const std::wstring in = folder.empty() ? folder : folder + L"\\";
    const MadeSkin made = SkinWithFiles(Joined(LinesWithoutFaults()));
    if (!folder.empty()) std::filesystem::create_directory(skin.PathOf(folder));
    skin.Write(in + L"skin.ini", made.Definition());
    for (const char16_t* name : {u"Skin.BMP", u"a.png", u"b.png", u"c.png", u"d.png", u"home.png"}) {
        const Bytes bytes = made.Find(name).at(0).Bytes;
        skin.Write(in + AsWide(name), {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
}

} // namespace vantik
