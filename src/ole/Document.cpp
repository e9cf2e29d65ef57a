#include "ole/Document.h"

#include "ole/Control.h"

namespace vantik {

void Document::InitNew() {
    ready_ = true;
    control_.Engine.UserControl_InitProperties();
    dirty_ = false;
}

// Ready even where the values could only be read in part: what was read stands, and the loader knows of the error.
void Document::Load(PropertyReader& reader) {
    ready_ = true;
    control_.Engine.UserControl_ReadProperties(reader);
    dirty_ = false;
    control_.ShowChanges();
}

void Document::Save(PropertyWriter& writer, bool clearDirty) {
    Need();
    control_.Engine.UserControl_WriteProperties(writer);
    if (clearDirty) dirty_ = false;
}

void Document::Need() noexcept {
    if (ready_) return;
    try {
        InitNew();
    } catch (...) {
        // The values are the defaults anyway; only the host's font is missing.
    }
}

} // namespace vantik
