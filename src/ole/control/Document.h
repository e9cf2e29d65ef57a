// The persistent state of the control: whether it has its values yet, and whether they differ from what was saved last.
#pragma once

#include "control/PropertyBag.h"
#include "platform/ComPtr.h"

namespace vantik {

class Control;

class Document {
public:
    explicit Document(Control& control) noexcept : control_(control) {}

    // A control that its host created anew, and one that it restores.
    void InitNew();
    void Load(PropertyReader& reader);

    void Save(PropertyWriter& writer, bool clearDirty);

    // For a host that asks for something without doing either first.
    void Need() noexcept;

    // The host's font changed: a control that has it still gets the new one.
    void FollowAmbientFont() noexcept;

    bool IsReady() const noexcept { return ready_; }
    bool IsDirty() const noexcept;
    void MarkDirty() noexcept { dirty_ = true; }
    void MarkClean() noexcept;

private:
    void ShowWhatWasRead() noexcept;
    void RememberAmbientFont() noexcept;

    Control& control_;
    bool ready_ = false, dirty_ = false;
    ComPtr<IFontDisp> cleanFont_;   // as it was when the values were those that were saved
    ComPtr<IFontDisp> ambientFont_; // as the control took it; null where it took none
};

} // namespace vantik
