#include "Tabs.h"

short Tabs::Count() const {
    short count = 0;
    Check(control_.get_TabCount(&count));
    return count;
}

short Tabs::Active() const {
    short tab = 0;
    Check(control_.get_ActiveTab(&tab));
    return tab;
}

void Tabs::Activate(short tab) const { Check(control_.put_ActiveTab(tab)); }

short Tabs::Find(const std::wstring& caption) const {
    for (short tab = 0; tab < Count(); ++tab)
        if (Caption(tab) == caption) return tab;
    return -1;
}

void Tabs::Remove(short tab) const { Check(control_.RemoveTab(tab)); }

std::wstring Tabs::Caption(short tab) const {
    Text caption;
    Check(control_.GetTabCaption(&tab, &caption.Value));
    return caption.String();
}

void Tabs::SetCaption(short tab, const std::wstring& caption) const {
    Text text(caption);
    VARIANT_BOOL refresh = VARIANT_TRUE;
    Check(control_.SetBarCaption(&tab, &text.Value, &refresh));
}

void Tabs::SetIcon(short tab, const std::wstring& name) const {
    Text text(name);
    Check(control_.SetBarIco(&tab, &text.Value));
}

bool Tabs::IsEnabled(short tab) const {
    VARIANT_BOOL enabled = VARIANT_FALSE;
    Check(control_.GetTabEnable(&tab, &enabled));
    return enabled != VARIANT_FALSE;
}

void Tabs::Disable(short tab) const {
    VARIANT_BOOL enabled = VARIANT_FALSE;
    Check(control_.SetBarEnable(&tab, &enabled));
}
