// Carries out the steps of a command line.
#pragma once

#include <memory>
#include <optional>

#include "CommandLine.h"
#include "Members.h"
#include "host/HostForm.h"

namespace vantik {

class Session {
public:
    // Checks every name and value of the steps; UsageError before anything has happened.
    Session(ControlModule& module, const CommandLine& line);

    void Run();

private:
    void Check(const SetStep& step) const;
    void Check(const DoStep& step) const;
    template <class Other>
    void Check(const Other&) const {}

    void Do(const SizeStep& step);
    void Do(const LoadStep& step);
    void Do(const SaveStep& step);
    void Do(const SetStep& step);
    void Do(const DoStep& step);
    void Do(const PointerStep& step);
    void Do(const PressStep& step);
    void Do(const KeyStep& step);
    void Do(const WheelStep& step);
    void Do(const OutStep& step);

    void OpenForm(TextPropertyBag* bag);
    HostForm& Form(); // opened at the first step that needs it
    void LetGoOfButton();
    std::vector<Variant> Convert(const Member& member, const std::vector<std::wstring>& texts) const;

    ControlModule& module_;
    const CommandLine& line_;
    Members members_;
    SIZE size_ = {480, 320};
    std::unique_ptr<HostForm> form_;
    std::optional<POINT> pressedAt_;
};

} // namespace vantik
