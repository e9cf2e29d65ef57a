// The form's window: a top-level one, or a piece of another.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

#include "platform/mDeclares.h"

namespace vantik {

using MessageHandler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

class FormWindow {
public:
    // The handler sees every message first; what it answers is final.
    FormWindow(const std::wstring& title, SIZE clientSize, MessageHandler handler, HWND parent = nullptr);
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    HWND Handle() const noexcept { return window_; } // null once it was destroyed
    SIZE ClientSize() const noexcept;
    void ResizeClient(SIZE size);
    void MoveTo(const RECT& place); // in the parent's window
    void Show(int command = SW_SHOWNORMAL);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    MessageHandler handler_;
    HWND window_ = nullptr;
};

} // namespace vantik
