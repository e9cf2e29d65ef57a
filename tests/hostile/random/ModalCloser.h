// Closes the card and the message boxes that a control shows, as a user would: they wait for that in loops of their own.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

class World;

class ModalCloser {
public:
    explicit ModalCloser(World& world);
    ~ModalCloser();
    ModalCloser(const ModalCloser&) = delete;
    ModalCloser& operator=(const ModalCloser&) = delete;

private:
    static LRESULT CALLBACK Watch(int code, WPARAM wParam, LPARAM lParam);
    static void Close(HWND window, const CREATESTRUCTW& creation) noexcept;

    HHOOK hook_;
};

} // namespace vantik
