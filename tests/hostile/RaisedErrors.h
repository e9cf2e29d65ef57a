// Errors that are raised inside the control and come back to the caller as numbers.
#pragma once

#include <doctest/doctest.h>

#include "host/Automation.h"
#include "host/ControlModule.h"

namespace vantik {

inline int ErrorOfBarWidth(IDispatch& control, std::int16_t width) {
    try {
        Put(control, L"BarWidth", width);
    } catch (const AutomationError& error) {
        return error.Number();
    }
    return 0;
}

// A control is made, raises errors and still works.
inline void CheckThatErrorsComeBack(const ControlModule& module) {
    const auto object = module.Create();
    const auto control = QueryFor<IDispatch>(object.Get());
    Put(*control.Get(), L"TabCount", std::int16_t{2});
    CHECK(ErrorOfBarWidth(*control.Get(), 0) == 11); // the layout divides by it
    CHECK(ErrorOfBarWidth(*control.Get(), 0) == 11);
    CHECK(ErrorOfBarWidth(*control.Get(), 60) == 0);
    CHECK(Get(*control.Get(), L"BarWidth").Number() == 60);
}

} // namespace vantik
