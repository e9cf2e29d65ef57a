#include "Skin.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

std::filesystem::path ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

long ToColour(const std::wstring& text) {
    const unsigned long rgb = std::wcstoul(text.c_str() + 1, nullptr, 16);
    return static_cast<long>((rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16);
}

// #RRGGBB, True, the name of a constant (their places here are their values), or a number.
long ToNumber(const std::wstring& text) {
    constexpr std::array constants = {L"AlignLeft", L"AlignMiddle", L"AlignRight"};
    const auto constant = std::find(constants.begin(), constants.end(), text);
    if (constant != constants.end()) return static_cast<long>(constant - constants.begin());
    if (text == L"True") return VARIANT_TRUE;
    if (text == L"False") return VARIANT_FALSE;
    return text[0] == L'#' ? ToColour(text) : std::wcstol(text.c_str(), nullptr, 10);
}

// By its name, as a form's designer does; the control makes of the number what the property is.
void Put(IDispatch& control, std::wstring property, long number) {
    wchar_t* name = property.data();
    DISPID member = 0;
    Check(control.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &member));
    VARIANT value = {};
    value.vt = VT_I4;
    value.lVal = number;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments = {&value, &put, 1, 1};
    Check(control.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &arguments, nullptr,
                         nullptr, nullptr));
}

} // namespace

void UseSkin(_VantikFrameTab& control, const std::wstring& name) {
    Check(control.put_SkinPath(Text(L"Skins\\" + name).Value));
    Check(control.put_SkinFile(Text(L"SKIN.INI").Value));
    std::wifstream settings(ProgramFolder() / L"Skins" / name / L"SETTINGS.TXT");
    std::wstring property, equals, value;
    for (std::wstring line; std::getline(settings, line);) {
        if (line.starts_with(L"//")) continue;
        std::wistringstream words(line);
        if (words >> property >> equals >> value) Put(control, property, ToNumber(value));
    }
}
