// Files that keep designed forms.
#pragma once

#include <filesystem>
#include <string>

#include "demos/form/design/model/FormText.h"
#include "host/FileDialog.h"

namespace vantik {

inline constexpr FileKind FormFiles = {L"Forms (*.form)\0*.form\0All files\0*.*\0", L"form"};

// UTF-8, as it stands in the file. Throws HostError, which names the file.
std::string ReadFormFile(const std::filesystem::path& path);

// Between the text of a file and a form. ParseForm throws FormTextError.
DesignedForm ParseForm(const std::string& text);
std::string TextOf(const DesignedForm& form);

} // namespace vantik
