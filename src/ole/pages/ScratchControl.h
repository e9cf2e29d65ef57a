// A control of the page's own that looks as an edited one would with other values. It has no window and no host.
#pragma once

#include <optional>
#include <span>

#include "ole/pages/EditedObjects.h"

namespace vantik {

// A new control, which shows no messages; the room that makes controls defines it.
ComPtr<IUnknown> NewControl();

class ScratchControl {
public:
    static ScratchControl New() { return ScratchControl(NewControl()); }

    // Nothing for an object of another class, or one that does not say what it would save.
    static std::optional<ScratchControl> CopyOf(IUnknown* object);

    void Assign(std::span<const Assignment> assignments) const { values_.Assign(assignments); }
    std::optional<std::u16string> Value(const wchar_t* property) const { return values_.Value(property); }
    IDispatch* Object() const noexcept { return values_.At(0); }

    // In its own size, as the rectangle is large: a picture of a corner would not show what goes where.
    void Draw(HDC dc, const RECT& place) const noexcept;

private:
    explicit ScratchControl(ComPtr<IUnknown> control);

    ComPtr<IUnknown> control_;
    EditedObjects values_;
};

} // namespace vantik
