#include "ole/control/Document.h"

#include "ole/com/Fonts.h"
#include "ole/control/Control.h"
#include "platform/DebugLine.h"

namespace vantik {

void Document::InitNew() {
    ready_ = true;
    control_.Engine.UserControl_InitProperties();
    MarkClean();
    RememberAmbientFont();
}

// Ready even where the values could only be read in part: what was read stands, and the loader knows of the error.
void Document::Load(PropertyReader& reader) {
    ready_ = true;
    try {
        control_.Engine.UserControl_ReadProperties(reader);
    } catch (...) {
        ShowWhatWasRead();
        throw;
    }
    MarkClean();
    RememberAmbientFont();
    control_.Place.Watching().TabsReplaced();
    control_.ShowChanges();
}

// What stands on the screen is what the pointer hits, also for a host that goes on with what it got.
void Document::ShowWhatWasRead() noexcept {
    try {
        control_.Engine.RepaintAll();
    } catch (...) {
        // The loader is told of the error that came first.
    }
    control_.Place.Watching().TabsReplaced();
    control_.ShowChanges();
}

// The font of a clean control: its host's, or one that was saved.
void Document::RememberAmbientFont() noexcept {
    const auto font = control_.Engine.Font(), given = control_.Ambient.FontGiven();
    const bool isOfHost = font.Get() == given.Get() || AreEqualFonts(font.Get(), given.Get());
    ambientFont_ = isOfHost ? cleanFont_ : nullptr;
}

// A font that was set since, or changed by those who hold it, is the control's own.
void Document::FollowAmbientFont() noexcept {
    if (!AreEqualFonts(control_.Engine.Font().Get(), ambientFont_.Get())) return;
    try {
        auto font = control_.Ambient.Font();
        if (AreEqualFonts(font.Get(), ambientFont_.Get())) return;
        ambientFont_ = CopyOfFont(font.Get());
        control_.Engine.Font(std::move(font));
    } catch (...) {
        TellDebugger(u"when its host's font changed");
    }
    control_.ShowChanges();
}

void Document::Save(PropertyWriter& writer, bool clearDirty) {
    Need();
    control_.Engine.UserControl_WriteProperties(writer);
    if (clearDirty) MarkClean();
}

void Document::MarkClean() noexcept {
    dirty_ = false;
    cleanFont_ = CopyOfFont(control_.Engine.Font().Get());
}

// The font may be changed behind the control's back, by those who hold it.
bool Document::IsDirty() const noexcept {
    const auto font = control_.Engine.Font();
    return dirty_ || (font && cleanFont_ && !AreEqualFonts(font.Get(), cleanFont_.Get()));
}

void Document::Need() noexcept {
    if (ready_) return;
    try {
        InitNew();
    } catch (...) {
        TellDebugger(u"when it got its first values"); // the defaults anyway; only the host's font is missing
    }
}

} // namespace vantik
