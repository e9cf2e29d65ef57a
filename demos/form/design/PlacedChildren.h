// The windows that stand on the control for a form's children.
#pragma once

#include <string_view>
#include <vector>

#include "demos/form/design/model/Child.h"
#include "host/HostForm.h"
#include "host/Widgets.h"

namespace vantik {

class PlacedChildren {
public:
    // Under design they leave the pointer to the control's window.
    PlacedChildren(HostForm& form, const FormFont& font, bool underDesign)
        : form_(form), font_(font), underDesign_(underDesign) {}

    void Add(const Child& child);
    void Remove(std::wstring_view name);
    void Clear();
    std::vector<Child> All() const; // as they stand now

    void SetPixels(std::wstring_view name, const Box& place);
    void SetText(std::wstring_view name, const std::wstring& text);

    // In pixels of the control's window.
    Box Pixels(std::wstring_view name) const;
    bool IsOnPage(std::wstring_view name, const Box& page) const;
    std::wstring NameAt(int x, int y) const; // of the uppermost; empty where none is

private:
    struct Placed {
        ChildKind Kind;
        std::wstring Text;
        HostedWindow* Item; // the form's
    };

    const Placed* Find(std::wstring_view name) const noexcept;
    static Box Pixels(const Placed& child);
    static void Show(const Placed& child);

    HostForm& form_;
    const FormFont& font_;
    bool underDesign_;
    std::vector<Placed> children_;
};

} // namespace vantik
