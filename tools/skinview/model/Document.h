// The definition under work, with its history.
#pragma once

#include <string>
#include <vector>

#include "tools/skin/DefinitionText.h"

namespace vantik {

class Document {
public:
    Document() : Document(std::string()) {}
    explicit Document(std::string bytes) : text_(bytes), saved_(std::move(bytes)) {}

    const DefinitionText& Text() const noexcept { return text_; }
    const std::string& Bytes() const noexcept { return text_.Bytes(); }
    const std::string& Saved() const noexcept { return saved_; }
    bool IsChanged() const noexcept { return Bytes() != saved_; }

    // A step of the history. Steps of one gesture, such as a drag, are one: they are undone together.
    static constexpr int OwnGesture = 0;
    void Change(std::string bytes, int gesture = OwnGesture);

    bool CanUndo() const noexcept { return !done_.empty(); }
    bool CanRedo() const noexcept { return !undone_.empty(); }
    void Undo();
    void Redo();

    // What stands on disk now. A text that another program wrote there can be undone like any change.
    void NoteSaved() { saved_ = Bytes(); }
    void TakeFromDisk(std::string bytes);

private:
    void Swap(std::vector<std::string>& from, std::vector<std::string>& to);

    DefinitionText text_;
    std::string saved_;
    std::vector<std::string> done_, undone_; // the texts before and behind this one, nearest last
    int gesture_ = OwnGesture;               // that the newest step belongs to
};

} // namespace vantik
