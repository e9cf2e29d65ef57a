// A skin on disk.
#pragma once

#include "check/SkinSource.h"

namespace vantik {

class FolderSource : public SkinSource {
public:
    // The folder with the separator behind it; empty for the current one.
    FolderSource(std::u16string folder, std::u16string definition)
        : folder_(std::move(folder)), definition_(std::move(definition)) {}

    bool IsThere() const; // whether the definition can be read

    std::string Name() const override;
    std::string Definition() const override; // empty when it cannot be read
    std::vector<SkinFile> Find(const std::u16string& name) const override;

private:
    std::u16string folder_, definition_;
};

// The same with the text of an editor in place of the saved definition.
class EditedSource final : public FolderSource {
public:
    EditedSource(FolderSource saved, std::string text)
        : FolderSource(std::move(saved)), text_(std::move(text)) {}

    std::string Definition() const override { return text_; }

private:
    std::string text_;
};

} // namespace vantik
