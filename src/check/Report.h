// Gathers the faults of one skin.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "check/DefinitionText.h"
#include "check/Fault.h"

namespace vantik {

class Report {
public:
    struct Words {
        std::string What, Effect = {}, Meant = {};
    };

    Report(std::string file, const DefinitionText& text) : file_(std::move(file)), text_(text) {}

    // At a byte of the definition.
    void Error(std::size_t at, Words words) { Add(Severity::Error, at, std::move(words)); }
    void Warn(std::size_t at, Words words) { Add(Severity::Warning, at, std::move(words)); }

    std::vector<Fault> Take(); // in the order of their places

private:
    void Add(Severity severity, std::size_t at, Words words);

    std::string file_;
    const DefinitionText& text_;
    std::vector<Fault> faults_;
};

} // namespace vantik
