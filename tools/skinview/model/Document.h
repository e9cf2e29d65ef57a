// The definition under work, with its history.
#pragma once

#include <string>
#include <utility>

#include "check/DefinitionText.h"
#include "host/TextHistory.h"

namespace vantik {

class Document {
public:
    Document() : Document(std::string()) {}
    explicit Document(std::string bytes) : history_(std::move(bytes)), text_(history_.Text()) {}

    const DefinitionText& Text() const noexcept { return text_; }
    const std::string& Bytes() const noexcept { return text_.Bytes(); }
    const std::string& Saved() const noexcept { return history_.Saved(); }
    bool IsChanged() const noexcept { return history_.IsChanged(); }

    void Change(std::string bytes, int gesture = TextHistory::OwnGesture) {
        history_.Change(std::move(bytes), gesture);
        ReadAgain();
    }

    bool CanUndo() const noexcept { return history_.CanUndo(); }
    bool CanRedo() const noexcept { return history_.CanRedo(); }
    void Undo() {
        history_.Undo();
        ReadAgain();
    }
    void Redo() {
        history_.Redo();
        ReadAgain();
    }

    void NoteSaved() { history_.NoteSaved(); }
    void TakeFromDisk(std::string bytes) {
        history_.TakeFromDisk(std::move(bytes));
        ReadAgain();
    }

private:
    void ReadAgain() { text_.Assign(history_.Text()); }

    TextHistory history_;
    DefinitionText text_;
};

} // namespace vantik
