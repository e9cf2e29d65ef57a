#include "host/TextHistory.h"

namespace vantik {

void TextHistory::Change(std::string text, int gesture) {
    if (text == text_) return;
    const bool goesOn = gesture != OwnGesture && gesture == gesture_;
    if (!goesOn) done_.push_back(text_);
    gesture_ = gesture;
    undone_.clear();
    text_ = std::move(text);
}

void TextHistory::Swap(std::vector<std::string>& from, std::vector<std::string>& to) {
    if (from.empty()) return;
    to.push_back(std::move(text_));
    text_ = std::move(from.back());
    from.pop_back();
    gesture_ = OwnGesture;
}

void TextHistory::TakeFromDisk(std::string text) {
    saved_ = text;
    Change(std::move(text));
}

} // namespace vantik
