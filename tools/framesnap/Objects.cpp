#include "Objects.h"

#include <filesystem>
#include <sstream>

#include "host/HostError.h"
#include "host/SavedObjects.h"
#include "host/Variant.h"

namespace vantik {

namespace {

void ApplyStyle(SavedFont& font, const std::wstring& style) {
    if (style == L"bold") {
        font.Weight = FW_BOLD;
    } else if (style == L"italic") {
        font.Italic = true;
    } else if (style == L"underline") {
        font.Underline = true;
    } else if (style == L"strikethrough") {
        font.Strikethrough = true;
    } else {
        throw HostError("a font has no style '" + ToUtf8(style) + "'");
    }
}

} // namespace

ComPtr<IDispatch> MakeFont(const std::wstring& text) {
    std::wistringstream parts(text);
    SavedFont font;
    std::wstring part;
    std::getline(parts, font.Name, L',');
    std::getline(parts, part, L',');
    font.Size = Variant(part).Real();
    while (std::getline(parts, part, L',')) ApplyStyle(font, part);
    return MakeAgain(font);
}

ComPtr<IDispatch> MakePicture(const std::wstring& path) {
    if (path.empty()) return nullptr;
    std::wstring full = std::filesystem::absolute(path).wstring(); // the picture loader takes nothing else
    ComPtr<IDispatch> picture;
    const Variant name(full);
    Check(OleLoadPicturePath(name.Get().bstrVal, nullptr, 0, 0, __uuidof(IDispatch), picture.PutVoid()),
          "Loading the picture");
    return picture;
}

} // namespace vantik
