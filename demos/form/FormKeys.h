// Keys of the form for what the control itself has no key for. What they do is what a press on the control's buttons does:
// they act through the objects that it shows to screen readers.
#pragma once

#include <optional>

#include "acctree/Node.h"
#include "host/HostForm.h"

namespace vantik {

class FormKeys {
public:
    explicit FormKeys(HostForm& form) noexcept : form_(form) {}

    // Ctrl+Tab: the next tab; Ctrl+Page Down: scrolls the row; both backwards with Shift and Page Up. Ctrl+F4: closes the
    // active tab. The context menu key, Shift+F10, on the row: the menu of tabs. False for every other key.
    bool Use(const MSG& message);

    POINT MenuCorner() const; // below the button that opens it

private:
    enum class Button { Previous, Next, Menu };

    bool UseWithControl(WPARAM key);
    void Step(int direction);
    bool Press(Button button) const;
    void CloseActive() const;
    void BringIntoView(int tab) const;
    std::vector<Node> Row() const;
    std::optional<Node> Find(Button button) const;
    int Number(const wchar_t* property) const { return Get(form_.Control(), property).Number(); }

    HostForm& form_;
};

} // namespace vantik
