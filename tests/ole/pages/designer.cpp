// A form under design and the property pages of its control, shown by the control's verb in the form's own frame, with
// --system in the system's. Prints a line of properties whenever one of them changes.
#include <cstdio>

#include "host/BuiltControl.h"
#include "host/HostForm.h"
#include "host/MessageLoop.h"
#include "host/OleApartment.h"
#include "host/ProgramArguments.h"
#include "host/PropertyFrame.h"

namespace vantik {

namespace {

void Print(HostForm& form) {
    for (const wchar_t* property : {L"BarWidth", L"TabPos", L"TabBorder", L"SkinPath", L"SkinFile"})
        std::printf("%s=%s ", ToUtf8(property).c_str(),
                    ToUtf8(Get(form.Control(), property).As(VT_BSTR).Text()).c_str());
    std::puts("");
    std::fflush(stdout);
}

void RunUntilClosed(HostForm& form, PropertyFrame& frame) {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (frame.TranslateMessage(message) || form.TranslateMessage(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void Run(bool system) {
    const OleApartment apartment;
    ControlModule module(FindBuiltControl());
    HostForm* opened = nullptr;
    FormHandlers handlers;
    handlers.PropertyChanged = [&](DISPID) {
        if (opened) Print(*opened);
    };
    ComPtr<PropertyFrame> frame;
    if (!system)
        handlers.ShowProperties = [&] {
            frame = MakeCom<PropertyFrame>(opened->ControlObject(), [] { PostQuitMessage(0); });
        };
    HostSwitches underDesign;
    underDesign.UserMode = false;
    HostForm form(module, {}, underDesign, handlers);
    form.Window().Show();
    form.OpenNew();
    Put(form.Control(), L"BarWidth", std::int16_t{60});
    Put(form.Control(), L"TabCount", std::int16_t{3});
    Put(form.Control(), L"ActiveTab", std::int16_t{0});
    PumpMessages(form);
    opened = &form;
    form.DoVerb(OLEIVERB_PROPERTIES);
    if (frame) {
        RunUntilClosed(form, *frame.Get());
        frame->End();
    }
    opened = nullptr;
}

} // namespace

} // namespace vantik

int main() {
    try {
        const auto arguments = vantik::ProgramArguments();
        vantik::Run(!arguments.empty() && arguments[0] == L"--system");
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "designer: %s\n", error.what());
        return 1;
    }
}
