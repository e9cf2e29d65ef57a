#include "model/Tabs.h"

#include "base/Checked.h"

namespace vantik {

void Tabs::Resize(std::int16_t upperBound) {
    if (upperBound < 0) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    records_.resize(static_cast<std::size_t>(upperBound) + 1);
}

void Tabs::ShiftUp(std::int16_t first, std::int16_t last) {
    if (first >= last) return;
    for (std::int32_t i = last; i > first; --i) (*this)(i) = std::move((*this)(i - 1));
    (*this)(first) = (*this)(first + 1); // the only one that stands in two places
}

const TabRecord& Tabs::operator()(std::int32_t index) const {
    if (index < 0 || index > UpperBound()) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    return records_[static_cast<std::size_t>(index)];
}

TabRecord& Tabs::operator()(std::int32_t index) {
    return const_cast<TabRecord&>(static_cast<const Tabs&>(*this)(index));
}

} // namespace vantik
