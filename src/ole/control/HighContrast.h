// Users who chose high contrast see captions in the colours that they chose.
#pragma once

#include "platform/UserControl.h"

namespace vantik {

bool IsHighContrastOn() noexcept;

// Nothing where those of the properties stay: high contrast is off, or the host set a colour. A host that set just the
// default one cannot be told from one that set none.
//
// The system's colours go by pairs: each brings its ground along, as the skin's bars may have any colour.
std::optional<CaptionColours> HighContrastColours(CaptionKind kind, std::int32_t ofProperty) noexcept;

} // namespace vantik
