#include "ole/accessible/Accessibility.h"

#include "ole/accessible/AccessiblePart.h"

namespace vantik {

Accessibility::~Accessibility() {
    if (link_) link_->Cut();
}

LRESULT Accessibility::Answer(WPARAM wParam) {
    if (!link_) link_ = std::make_shared<Link>(control_);
    const auto row = AccessiblePart::Make(link_, {});
    return link_->System.Answer(wParam, *row.Get());
}

} // namespace vantik
