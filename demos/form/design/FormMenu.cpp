#include "demos/form/design/FormMenu.h"

#include <initializer_list>
#include <iterator>

#include "platform/ComPtr.h"

namespace vantik {

namespace {

struct Item {
    DesignCommand Id;
    const wchar_t* Text; // null: a line
};

constexpr Item Separator = {DesignCommand(0), nullptr};
constexpr UINT VerbMenu = 2; // its place in the bar

void AddPopup(HMENU menu, const wchar_t* title, std::initializer_list<Item> items) {
    const HMENU popup = CreatePopupMenu();
    for (const Item& item : items)
        AppendMenuW(popup, item.Text ? MF_STRING : MF_SEPARATOR, static_cast<UINT_PTR>(item.Id), item.Text);
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), title);
}

ACCEL Key(BYTE modifiers, WORD key, DesignCommand command) noexcept {
    return {static_cast<BYTE>(FVIRTKEY | modifiers), key, static_cast<WORD>(command)};
}

} // namespace

const wchar_t* const DesignKeysText =
    L"Take a tool and draw a rectangle on the page, or press for the usual size.\n"
    L"A press on a bar shows its tab. Two presses on the page show the properties.\n"
    L"\n"
    L"Arrow keys\tmove what is chosen by a pixel\n"
    L"Shift+arrow\tresize it\n"
    L"Alt with the pointer\tpay no heed to the grid\n"
    L"Tab, Shift+Tab\tchoose the next and the one before\n"
    L"Del\tremove it\n"
    L"Esc\tcall off a drag, choose none\n"
    L"\n"
    L"F4\tproperties of the control\n"
    L"F5, Shift+F5\trun the form, end it\n"
    L"Ctrl+N, Ctrl+O, Ctrl+S\tnew form, open one, save\n"
    L"Ctrl+Z, Ctrl+Y\tundo, redo";

HMENU MakeFormMenu() {
    using enum DesignCommand;
    const HMENU menu = CreateMenu();
    AddPopup(menu, L"&File",
             {{New, L"&New\tCtrl+N"},
              {Open, L"&Open...\tCtrl+O"},
              {Save, L"&Save\tCtrl+S"},
              {SaveAs, L"Save &as..."},
              Separator,
              {Exit, L"E&xit"}});
    AddPopup(menu, L"&Edit",
             {{Undo, L"&Undo\tCtrl+Z"}, {Redo, L"&Redo\tCtrl+Y"}, Separator, {Delete, L"&Delete\tDel"}});
    AddPopup(menu, L"&Control", {});
    AddPopup(menu, L"&Run", {{Run, L"&Start\tF5"}, {End, L"&End\tShift+F5"}});
    AddPopup(menu, L"&Help", {{Keys, L"&Pointer and keys...\tF1"}});
    return menu;
}

HACCEL MakeFormKeys() {
    using enum DesignCommand;
    ACCEL keys[] = {
        Key(FCONTROL, 'N', New),   Key(FCONTROL, 'O', Open), Key(FCONTROL, 'S', Save),
        Key(FCONTROL, 'Z', Undo),  Key(FCONTROL, 'Y', Redo), Key(FCONTROL | FSHIFT, 'Z', Redo),
        Key(0, VK_F4, Properties), Key(0, VK_F5, Run),       Key(FSHIFT, VK_F5, End),
        Key(0, VK_F1, Keys),
    };
    return CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys)));
}

void EnableCommand(HMENU menu, DesignCommand command, bool enable) {
    EnableMenuItem(menu, static_cast<UINT>(command), enable ? MF_ENABLED : MF_GRAYED);
}

void AddVerbs(HMENU menu, IOleObject& control) {
    const HMENU popup = GetSubMenu(menu, VerbMenu);
    while (DeleteMenu(popup, 0, MF_BYPOSITION)) continue;
    ComPtr<IEnumOLEVERB> verbs;
    if (control.EnumVerbs(verbs.Put()) != S_OK) return;
    for (OLEVERB verb = {}; verbs->Next(1, &verb, nullptr) == S_OK; CoTaskMemFree(verb.lpszVerbName))
        if (verb.lVerb >= 0 && verb.lVerb <= LastVerb - FirstVerb &&
            verb.grfAttribs & OLEVERBATTRIB_ONCONTAINERMENU)
            AppendMenuW(popup, MF_STRING | verb.fuFlags, FirstVerb + static_cast<UINT_PTR>(verb.lVerb),
                        verb.lpszVerbName);
}

} // namespace vantik
