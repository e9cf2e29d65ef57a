// The objects that a page edits, all of them as one.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/ComPtr.h"

namespace vantik {

// A property and the text of its value, which the object itself makes a value of.
struct Assignment {
    const wchar_t* Property;
    std::u16string Value;
    // Whether the earlier value can be given back to an object: a skin may not be there any more.
    bool CanBeUndone = true;
};

class EditedObjects {
public:
    EditedObjects() noexcept = default;
    // E_NOINTERFACE for one that has no automation.
    explicit EditedObjects(std::span<IUnknown* const> objects);

    std::size_t Count() const noexcept { return objects_.size(); }
    IDispatch* At(std::size_t index) const noexcept { return objects_[index].Get(); }

    // The value that all of them have; nothing where they differ, or where one of them does not say.
    std::optional<std::u16string> Value(const wchar_t* property) const noexcept;

    // Gives the values to all, or, where one refuses one of them, to none, and raises what that one says.
    void Assign(std::span<const Assignment> assignments) const;

private:
    std::vector<ComPtr<IDispatch>> objects_;
};

} // namespace vantik
