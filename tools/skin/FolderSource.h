// A skin on disk.
#pragma once

#include <filesystem>
#include <optional>

#include "tools/skin/SkinSource.h"

namespace vantik {

class FolderSource : public SkinSource {
public:
    explicit FolderSource(std::filesystem::path definition) : definition_(std::move(definition)) {}

    bool IsThere() const; // whether the definition can be read

    std::string Name() const override;
    std::string Definition() const override; // empty when it cannot be read
    std::vector<SkinFile> Find(const std::u16string& name) const override;

private:
    std::filesystem::path definition_;
};

// The same with the text of an editor in place of the saved definition.
class EditedSource final : public FolderSource {
public:
    EditedSource(std::filesystem::path definition, std::string text)
        : FolderSource(std::move(definition)), text_(std::move(text)) {}

    std::string Definition() const override { return text_; }

private:
    std::string text_;
};

} // namespace vantik
