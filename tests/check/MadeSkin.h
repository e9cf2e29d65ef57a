// A skin that a test makes up: no file of it is on a disk.
#pragma once

#include <string>
#include <vector>

#include "base/Text.h"
#include "check/SkinSource.h"

namespace vantik {

class MadeSkin final : public SkinSource {
public:
    explicit MadeSkin(std::string definition) : definition_(std::move(definition)) {}

    MadeSkin& With(std::u16string name, std::vector<std::uint8_t> bytes) {
        files_.push_back({std::move(name), true, std::move(bytes)});
        return *this;
    }

    MadeSkin& WithLocked(std::u16string name) {
        files_.push_back({std::move(name), false, {}});
        return *this;
    }

    std::string Name() const override { return "SKIN.INI"; }
    std::string Definition() const override { return definition_; }
    std::vector<SkinFile> Find(const std::u16string& name) const override {
        std::vector<SkinFile> found;
        for (const SkinFile& file : files_)
            if (EqualIgnoringCase(file.Name, name)) found.push_back(file);
        return found;
    }

private:
    std::string definition_;
    std::vector<SkinFile> files_;
};

} // namespace vantik
