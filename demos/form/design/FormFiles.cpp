#include "demos/form/design/FormFiles.h"

#include <fstream>
#include <iterator>

#include "host/HostError.h"

namespace vantik {

std::string ReadFormFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || file.bad()) throw HostError("cannot read " + ToUtf8(path.wstring()));
    return text;
}

DesignedForm ParseForm(const std::string& text) { return ReadForm(FromUtf8(text)); }

std::string TextOf(const DesignedForm& form) { return ToUtf8(WriteForm(form)); }

} // namespace vantik
