// The ambient properties of the host. Any of them may be missing.
#pragma once

#include <optional>

#include "ole/com/Variant.h"
#include "ole/host/ClientSite.h"

namespace vantik {

class Ambients {
public:
    explicit Ambients(const ClientSite& site) noexcept : site_(site) {}

    bool UserMode(); // true where the host does not say
    bool UIDead();   // the host wants the user's input ignored

    // A copy of the host's font, so that changing the control's font leaves the host's alone; a standard font where the
    // host has none.
    ComPtr<IFontDisp> Font();
    // The one that was given out last. Whoever got it may have changed it.
    ComPtr<IFontDisp> FontGiven() const { return font_; }

    // What the host calls the control, for messages; empty where it does not say.
    std::u16string DisplayName() const;

    // DISPID_UNKNOWN: several changed.
    void Changed(DISPID property) noexcept;

private:
    bool Read(DISPID property, VARTYPE type, Variant& value) const noexcept;
    ComPtr<IFontDisp> ReadFont() const;
    bool ReadFlag(DISPID property, bool otherwise) const noexcept;

    const ClientSite& site_;
    ComPtr<IFontDisp> font_;
    // Asked for at every message; the host says when they change.
    std::optional<bool> userMode_, uiDead_;
};

} // namespace vantik
