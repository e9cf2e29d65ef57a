#include "model/Tabs.h"

#include <utility>

#include "base/ErrorText.h"

namespace vantik {

namespace {

// The spare record past the last tab is none to those who are told.
[[noreturn]] void RaiseNoSuchTab(std::int32_t index, std::int16_t upperBound) {
    if (upperBound == 0)
        Raise(RunTimeErrorNumber::SubscriptOutOfRange, u"There is no tab ", index, u": there are none");
    Raise(RunTimeErrorNumber::SubscriptOutOfRange, u"There is no tab ", index, u", only 0 to ",
          upperBound - 1);
}

} // namespace

void Tabs::Resize(std::int16_t upperBound) {
    if (upperBound < 0)
        Raise(RunTimeErrorNumber::SubscriptOutOfRange, u"There cannot be ", upperBound, u" tabs");
    records_.resize(static_cast<std::size_t>(upperBound) + 1);
}

void Tabs::Move(std::int16_t from, std::int16_t to) {
    static_cast<void>((*this)(to));
    TabRecord record = std::move((*this)(from));
    records_.erase(records_.begin() + from);
    records_.insert(records_.begin() + to, std::move(record));
}

const TabRecord& Tabs::operator()(std::int32_t index) const {
    if (index < 0 || index > UpperBound()) RaiseNoSuchTab(index, UpperBound());
    return records_[static_cast<std::size_t>(index)];
}

TabRecord& Tabs::operator()(std::int32_t index) {
    return const_cast<TabRecord&>(static_cast<const Tabs&>(*this)(index));
}

} // namespace vantik
