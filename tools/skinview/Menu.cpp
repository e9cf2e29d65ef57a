#include "Menu.h"

#include <initializer_list>
#include <iterator>

namespace vantik {

namespace {

struct Item {
    Command Id;
    const wchar_t* Text; // null: a line
};

constexpr Command NoCommand = Command(0);

void AddPopup(HMENU menu, const wchar_t* title, std::initializer_list<Item> items) {
    const HMENU popup = CreatePopupMenu();
    for (const Item& item : items)
        AppendMenuW(popup, item.Text ? MF_STRING : MF_SEPARATOR, item.Id, item.Text);
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), title);
}

constexpr BYTE Control = FVIRTKEY | FCONTROL;
constexpr ACCEL Keys[] = {
    {Control, 'N', NewCommand},
    {Control, 'O', OpenCommand},
    {Control, 'S', SaveCommand},
    {FVIRTKEY, VK_F5, ReloadCommand},
    {Control, 'Z', UndoCommand},
    {Control, 'Y', RedoCommand},
    {Control | FSHIFT, 'Z', RedoCommand},
    {Control, VK_OEM_PLUS, ZoomInCommand},
    {Control, VK_ADD, ZoomInCommand},
    {Control, VK_OEM_MINUS, ZoomOutCommand},
    {Control, VK_SUBTRACT, ZoomOutCommand},
    {Control, '0', FitCommand},
    {FVIRTKEY, VK_F6, NextPaneCommand},
    {FVIRTKEY, VK_F1, KeysCommand},
};

} // namespace

const wchar_t* const KeysText =
    L"In the bitmap:\n"
    L"Tab, Shift+Tab\tnext and previous rectangle\n"
    L"Arrow keys\tmove the rectangle by a pixel\n"
    L"Shift+arrow\tmove its right or bottom edge\n"
    L"Ctrl+arrow\tmove its left or top edge\n"
    L"Esc\tchoose none\n"
    L"Ctrl+wheel\tzoom at the pointer\n"
    L"\n"
    L"Everywhere:\n"
    L"Ctrl+N, Ctrl+O\tnew skin, open one\n"
    L"Ctrl+S\tsave\n"
    L"Ctrl+Z, Ctrl+Y\tundo, redo\n"
    L"Ctrl++, Ctrl+-, Ctrl+0\tlarger, smaller, all of the bitmap\n"
    L"F5\tread all files again\n"
    L"F6\tnext pane";

HMENU MakeMenu() {
    const HMENU menu = CreateMenu();
    AddPopup(menu, L"&File",
             {{NewCommand, L"&New skin...\tCtrl+N"},
              {OpenCommand, L"&Open...\tCtrl+O"},
              {SaveCommand, L"&Save\tCtrl+S"},
              {ReloadCommand, L"&Read files again\tF5"},
              {NoCommand, nullptr},
              {ExitCommand, L"E&xit"}});
    AddPopup(menu, L"&Edit", {{UndoCommand, L"&Undo\tCtrl+Z"}, {RedoCommand, L"&Redo\tCtrl+Y"}});
    AddPopup(menu, L"&View",
             {{ZoomInCommand, L"&Larger\tCtrl++"},
              {ZoomOutCommand, L"&Smaller\tCtrl+-"},
              {FitCommand, L"&All of the bitmap\tCtrl+0"},
              {NoCommand, nullptr},
              {NextPaneCommand, L"&Next pane\tF6"}});
    AddPopup(menu, L"&Help", {{KeysCommand, L"&Keys...\tF1"}});
    return menu;
}

HACCEL MakeKeys() {
    return CreateAcceleratorTableW(const_cast<ACCEL*>(Keys), static_cast<int>(std::size(Keys)));
}

void EnableCommand(HMENU menu, Command command, bool enable) {
    EnableMenuItem(menu, command, enable ? MF_ENABLED : MF_GRAYED);
}

} // namespace vantik
