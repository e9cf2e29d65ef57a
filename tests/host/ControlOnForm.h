// The built control on a form of its own, as the tests of this folder use it.
#pragma once

#include <string>
#include <vector>

#include "host/BuiltControl.h"
#include "host/HostForm.h"
#include "host/MessageLoop.h"
#include "host/OleApartment.h"

namespace vantik {

class ControlOnForm {
public:
    explicit ControlOnForm(HostSwitches switches = {}, FormHandlers handlers = {})
        : module_(FindBuiltControl()), form_(module_, {}, switches, WithRecorder(std::move(handlers))) {
        form_.Window().Show();
    }

    HostForm& Form() noexcept { return form_; }
    ControlModule& Module() noexcept { return module_; }
    IDispatch& Control() { return form_.Control(); }
    int Number(const wchar_t* property) { return Get(Control(), property).Number(); }

    void OpenWithTabs(std::int16_t count) {
        form_.OpenNew();
        Put(Control(), L"BarWidth", std::int16_t{60});
        Put(Control(), L"TabCount", count);
        Put(Control(), L"ActiveTab", std::int16_t{0});
        PumpMessages(form_);
        Events.clear();
    }

    std::vector<std::wstring> Events;            // as text, in the order in which they came
    std::function<void(EventCall&)> DuringEvent; // what the form's code does inside of one

private:
    FormHandlers WithRecorder(FormHandlers handlers) {
        handlers.Event = [this](EventCall& event) {
            Events.push_back(event.Text());
            if (DuringEvent) DuringEvent(event);
        };
        return handlers;
    }

    OleApartment apartment_;
    ControlModule module_;
    HostForm form_;
};

} // namespace vantik
