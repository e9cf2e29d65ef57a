#include "ole/pages/SkinFaults.h"

#include "check/CheckSkin.h"
#include "ole/pages/SkinFiles.h"
#include "platform/mDeclares.h"

namespace vantik {

namespace {

std::u16string FromUtf8(std::string_view text) {
    const int bytes = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::u16string wide(static_cast<std::size_t>(length), u'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, AsWide(wide.data()), length);
    return wide;
}

// Ends of lines as text boxes know them.
std::u16string WithReturns(std::u16string text) {
    for (std::size_t at = 0; (at = text.find(u'\n', at)) != text.npos; at += 2) text.insert(at, 1, u'\r');
    return text;
}

std::string LineOf(const Fault& fault) {
    return "Line " + std::to_string(fault.Line) + ", column " + std::to_string(fault.Column) + ": " +
           Describe(fault);
}

} // namespace

std::u16string FaultsOfSkin(const std::u16string& folder, const std::u16string& definition) {
    std::string text;
    for (const Fault& fault : CheckSavedSkin({FolderOfSkin(folder), definition}))
        text += (text.empty() ? "" : "\n") + LineOf(fault);
    return WithReturns(FromUtf8(text));
}

} // namespace vantik
