// The members of the control that the form uses, without the types of COM.
#pragma once

#include "Com.h"

class Tabs {
public:
    explicit Tabs(_VantikFrameTab& control) noexcept : control_(control) {}

    _VantikFrameTab& Control() const noexcept { return control_; }

    short Count() const;
    short Active() const;
    void Activate(short tab) const;                // no disabled one
    short Find(const std::wstring& caption) const; // -1 where no tab has it
    void Remove(short tab) const;                  // never the only one

    std::wstring Caption(short tab) const;
    void SetCaption(short tab, const std::wstring& caption) const;
    void SetIcon(short tab, const std::wstring& name) const; // one that the skin names
    bool IsEnabled(short tab) const;
    void Disable(short tab) const; // not the active one, or none would be active

private:
    _VantikFrameTab& control_;
};
