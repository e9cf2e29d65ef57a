// What is wrong in a skin, and where.
#pragma once

#include <span>
#include <string>

namespace vantik {

// An error keeps something of the skin from being shown as it is written. What a warning is about is shown, but hardly as
// it was meant.
enum class Severity { Error, Warning };

// Texts are UTF-8.
struct Fault {
    vantik::Severity Severity;
    std::string File;
    int Line = 0, Column = 0; // from 1; columns count bytes
    std::string What;
    std::string Meant;  // what may have been meant, as it is to be written; often empty
    std::string Effect; // what the control does
};

const char* NameOf(Severity severity) noexcept;

// "error: What; did you mean Meant?" and the effect in a line of its own.
std::string Describe(const Fault& fault);

// The same with its place in front: "SKIN.INI:12:5: error: ..."
std::string Format(const Fault& fault);

bool HasErrors(std::span<const Fault> faults) noexcept;

} // namespace vantik
