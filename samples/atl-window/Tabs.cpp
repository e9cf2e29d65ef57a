#include "Tabs.h"

long Tabs::Find(const std::wstring& caption) const {
    for (long tab = 0; tab < Count(); ++tab)
        if (Caption(tab) == caption) return tab;
    return -1;
}

void Tabs::Name(long tab, const std::wstring& caption, const std::wstring& icon) const {
    control_.Call(L"SetBarCaption", tab, caption, true);
    control_.Call(L"SetBarIco", tab, icon);
}
