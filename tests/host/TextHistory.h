// A text under work, with its history.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vantik {

class TextHistory {
public:
    TextHistory() = default;
    explicit TextHistory(std::string text) : text_(text), saved_(std::move(text)) {}

    const std::string& Text() const noexcept { return text_; }
    const std::string& Saved() const noexcept { return saved_; }
    bool IsChanged() const noexcept { return text_ != saved_; }

    // A step of the history. Steps of one gesture, such as a drag, are one: they are undone together.
    static constexpr int OwnGesture = 0;
    void Change(std::string text, int gesture = OwnGesture);

    bool CanUndo() const noexcept { return !done_.empty(); }
    bool CanRedo() const noexcept { return !undone_.empty(); }
    void Undo() { Swap(done_, undone_); }
    void Redo() { Swap(undone_, done_); }

    // What stands on disk now. A text that another program wrote there can be undone like any change.
    void NoteSaved() { saved_ = text_; }
    void TakeFromDisk(std::string text);

private:
    void Swap(std::vector<std::string>& from, std::vector<std::string>& to);

    std::string text_, saved_;
    std::vector<std::string> done_, undone_; // the texts before and behind this one, nearest last
    int gesture_ = OwnGesture;               // that the newest step belongs to
};

} // namespace vantik
