// The members of the control that the form uses.
#pragma once

#include "Object.h"

class Tabs {
public:
    explicit Tabs(IUnknown& control) : control_(control) {}

    const Object& Control() const noexcept { return control_; }

    long Count() const { return control_.Get(L"TabCount").Number(); }
    long Active() const { return control_.Get(L"ActiveTab").Number(); }
    void Activate(long tab) const { control_.Put(L"ActiveTab", tab); } // no disabled one
    long Find(const std::wstring& caption) const;                      // -1 where no tab has it
    void Remove(long tab) const { control_.Call(L"RemoveTab", tab); }  // never the only one

    std::wstring Caption(long tab) const { return control_.Call(L"GetTabCaption", tab).Text(); }
    bool IsEnabled(long tab) const { return control_.Call(L"GetTabEnable", tab).Flag(); }
    void Name(long tab, const std::wstring& caption, const std::wstring& icon) const;
    // Not the active one, or none would be active.
    void Disable(long tab) const { control_.Call(L"SetBarEnable", tab, false); }

private:
    Object control_;
};
