#include "tools/skinview/model/Document.h"

#include <utility>

namespace vantik {

void Document::Change(std::string bytes, int gesture) {
    if (bytes == Bytes()) return;
    const bool goesOn = gesture != OwnGesture && gesture == gesture_;
    if (!goesOn) done_.push_back(Bytes());
    gesture_ = gesture;
    undone_.clear();
    text_.Assign(std::move(bytes));
}

void Document::Swap(std::vector<std::string>& from, std::vector<std::string>& to) {
    if (from.empty()) return;
    to.push_back(Bytes());
    text_.Assign(std::move(from.back()));
    from.pop_back();
    gesture_ = OwnGesture;
}

void Document::Undo() { Swap(done_, undone_); }
void Document::Redo() { Swap(undone_, done_); }

void Document::TakeFromDisk(std::string bytes) {
    saved_ = bytes;
    Change(std::move(bytes));
}

} // namespace vantik
