#include "ole/pages/GeneralPage.h"

#include "ole/pages/PageNumbers.h"
#include "platform/Module.h"

namespace vantik {

namespace {

constexpr Field Fields[] = {
    {GENERAL_SIDE, Property::TabPos, FieldKind::Choice},
    {GENERAL_PLACE, Property::TabBarPos, FieldKind::Choice},
    {GENERAL_WIDTH, Property::BarWidth, FieldKind::Text},
    {GENERAL_GAP, Property::TabToTab, FieldKind::Text},
    {GENERAL_MARGIN, Property::FrameDist, FieldKind::Text},
    {GENERAL_EDGES, Property::TabBorder, FieldKind::Flag},
    {GENERAL_CLOSE, Property::DelButton, FieldKind::Flag},
};

// Texts of following numbers, up to the first that is none.
void FillList(HWND list, UINT first) {
    for (std::u16string text; !(text = ResourceText(first)).empty(); ++first)
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

} // namespace

GeneralPage::GeneralPage() : PropertyPage(PAGE_GENERAL, Fields) {}

void GeneralPage::FillLists() {
    FillList(Item(GENERAL_SIDE), CHOICES_SIDE);
    FillList(Item(GENERAL_PLACE), CHOICES_PLACE);
}

} // namespace vantik
