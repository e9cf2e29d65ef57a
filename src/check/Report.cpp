#include "check/Report.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace vantik {

void Report::Add(Severity severity, std::size_t at, Words words) {
    faults_.push_back({severity, file_, text_.LineAt(at).Number, text_.ColumnAt(at), std::move(words.What),
                       std::move(words.Meant), std::move(words.Effect)});
}

std::vector<Fault> Report::Take() {
    std::stable_sort(faults_.begin(), faults_.end(), [](const Fault& a, const Fault& b) {
        return std::tie(a.Line, a.Column) < std::tie(b.Line, b.Column);
    });
    return std::exchange(faults_, {});
}

} // namespace vantik
