#include "ole/pages/EditedObjects.h"

#include "ole/com/ErrorInfo.h"
#include "ole/com/LateBound.h"
#include "ole/com/Variant.h"

namespace vantik {

namespace {

std::u16string TextOf(IDispatch* object, const wchar_t* property) {
    Variant value;
    GetProperty(object, property, value);
    Check(value.ChangeType(VT_BSTR));
    return FromBstr(value.bstrVal);
}

void Put(IDispatch* object, const Assignment& assignment) {
    Variant value(assignment.Value);
    PutProperty(object, assignment.Property, value);
}

// Gives back what was there, unless all went well.
class Undo {
public:
    Undo() noexcept = default;
    ~Undo() {
        for (; !steps_.empty(); steps_.pop_back()) Take(steps_.back());
    }
    Undo(const Undo&) = delete;
    Undo& operator=(const Undo&) = delete;

    void Remember(const ComPtr<IDispatch>& object, const Assignment& assignment) {
        if (!assignment.CanBeUndone) return;
        steps_.push_back({object, {assignment.Property, TextOf(object.Get(), assignment.Property)}});
    }
    void Forget() noexcept { steps_.clear(); }

private:
    struct Step {
        ComPtr<IDispatch> Object;
        Assignment Earlier;
    };
    static void Take(const Step& step) noexcept {
        try {
            Put(step.Object.Get(), step.Earlier);
        } catch (...) { // the first error is the one to be told
        }
    }

    std::vector<Step> steps_;
};

} // namespace

EditedObjects::EditedObjects(std::span<IUnknown* const> objects) {
    for (IUnknown* object : objects) {
        objects_.push_back(QueryFor<IDispatch>(object));
        if (!objects_.back()) RaiseHostError(E_NOINTERFACE);
    }
}

std::optional<std::u16string> EditedObjects::Value(const wchar_t* property) const noexcept try {
    const auto objects = objects_; // whoever is asked may have others edited
    std::optional<std::u16string> common;
    for (const auto& object : objects) {
        const std::u16string value = TextOf(object.Get(), property);
        if (common.value_or(value) != value) return std::nullopt;
        common = value;
    }
    return common;
} catch (...) {
    return std::nullopt;
}

void EditedObjects::Assign(std::span<const Assignment> assignments) const {
    const auto objects = objects_;
    Undo undo;
    for (const auto& object : objects)
        for (const Assignment& assignment : assignments) {
            undo.Remember(object, assignment);
            Put(object.Get(), assignment);
        }
    undo.Forget();
}

} // namespace vantik
