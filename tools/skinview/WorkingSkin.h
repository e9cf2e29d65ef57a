// The skin under work as the controls read it: a copy beside this program, where a control looks for skins, of files as
// they are on disk and of a definition as it is in the editor.
#pragma once

#include <string>

#include "check/SkinSource.h"
#include "host/SkinBesideProgram.h"
#include "tools/skinview/model/Light.h"

namespace vantik {

class WorkingSkin {
public:
    WorkingSkin(); // takes away what programs that came to a sudden end have left

    // Copies the files that the definition names. What was copied before goes.
    void TakeFiles(const SkinSource& source, const DefinitionText& definition);

    const std::wstring& SkinPath() const noexcept { return skinPath_; }
    // Each returns the control's SkinFile, a new one every time: what a control has read is never changed.
    std::wstring Put(const DefinitionText& definition);
    std::wstring Put(const LitSkin& skin);

private:
    std::wstring Name(const char* kind) const;
    void Write(const std::wstring& name, std::string_view bytes) const;
    std::wstring PutDefinition(const std::string& local);

    SkinBesideProgram place_;
    std::wstring folder_, skinPath_; // of the files that were copied last
    int number_ = 0;
};

} // namespace vantik
