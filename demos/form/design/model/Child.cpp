#include "demos/form/design/model/Child.h"

#include <algorithm>
#include <cwctype>

namespace vantik {

namespace {

std::wint_t Small(wchar_t character) noexcept { return std::towlower(static_cast<std::wint_t>(character)); }

} // namespace

bool SameName(std::wstring_view a, std::wstring_view b) noexcept {
    return std::ranges::equal(a, b, [](wchar_t x, wchar_t y) { return Small(x) == Small(y); });
}

std::wstring FreeName(ChildKind kind, const std::vector<Child>& children) {
    for (int number = 1;; ++number) {
        const std::wstring name = TraitsOf(kind).NameStem + std::to_wstring(number);
        if (std::ranges::none_of(children, [&](const Child& child) { return SameName(child.Name, name); }))
            return name;
    }
}

std::vector<std::wstring> LinesOf(std::wstring_view listText) {
    std::vector<std::wstring> lines;
    while (!listText.empty()) {
        const std::size_t end = std::min(listText.find(L';'), listText.size());
        lines.emplace_back(listText.substr(0, end));
        listText.remove_prefix(std::min(end + 1, listText.size()));
    }
    return lines;
}

} // namespace vantik
