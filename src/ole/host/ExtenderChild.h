// A child control, reached through the object by which its host extends it.
#pragma once

#include "platform/UserControl.h"

namespace vantik {

class ExtenderChild final : public ChildControl {
public:
    explicit ExtenderChild(ComPtr<IDispatch> extender) noexcept : extender_(std::move(extender)) {}

    double Left() override;
    void Left(double left) override;
    std::u16string Name() override;
    void Visible(Boolean visible) override;

private:
    ComPtr<IDispatch> extender_; // null: has no property at all
};

} // namespace vantik
