#include "Session.h"

#include <cstdio>

#include "host/Input.h"
#include "host/MessageLoop.h"
#include "host/Snapshot.h"

namespace vantik {

namespace {

void PrintLine(const std::wstring& text) {
    std::printf("%s\n", ToUtf8(text).c_str());
    std::fflush(stdout);
}

RECT PlaceOf(SIZE size) noexcept { return {0, 0, size.cx, size.cy}; }

std::wstring ResultText(const Variant& result) {
    return result.Object()            ? L"(object)"
           : result.Type() == VT_BSTR ? L'"' + result.Text() + L'"'
                                      : result.Text();
}

} // namespace

Session::Session(ControlModule& module, const CommandLine& line)
    : module_(module), line_(line), members_(module) {
    for (const Step& step : line_.Steps) {
        std::visit([&](const auto& each) { Check(each); }, step);
    }
}

void Session::Check(const SetStep& step) const {
    const Member& member = members_.Property(step.Property);
    try {
        members_.Convert(member.Value, step.Value);
    } catch (const UsageError& error) {
        throw UsageError("--set " + ToUtf8(step.Property) + ": " + error.what());
    }
}

void Session::Check(const DoStep& step) const {
    const Member& member = members_.Callable(step.Member, step.Arguments.size());
    try {
        Convert(member, step.Arguments);
    } catch (const UsageError& error) {
        throw UsageError("--do " + ToUtf8(step.Member) + ": " + error.what());
    }
}

void Session::Run() {
    for (const Step& step : line_.Steps) {
        if (!std::holds_alternative<OutStep>(step)) LetGoOfButton();
        std::visit([&](const auto& each) { Do(each); }, step);
        if (form_) PumpMessages(*form_);
    }
    LetGoOfButton();
    form_.reset();
}

void Session::Do(const SizeStep& step) {
    size_ = step.Size;
    if (!form_) return;
    form_->Window().ResizeClient(size_);
    form_->MoveControl(PlaceOf(size_));
}

void Session::Do(const LoadStep& step) {
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Load(step.Path);
    OpenForm(bag.Get());
}

void Session::Do(const SaveStep& step) {
    const auto bag = MakeCom<TextPropertyBag>();
    Form().SaveTo(*bag.Get());
    bag->Save(step.Path);
}

void Session::Do(const SetStep& step) {
    const Member& member = members_.Property(step.Property);
    const Variant value = members_.Convert(member.Value, step.Value);
    const bool isObject = member.Value == ValueKind::Font || member.Value == ValueKind::Picture;
    Invoke(Form().Control(), member.Name, isObject ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT, {value});
}

void Session::Do(const DoStep& step) {
    const Member& member = members_.Callable(step.Member, step.Arguments.size());
    const WORD flags = member.IsMethod ? DISPATCH_METHOD : DISPATCH_PROPERTYGET;
    const Variant result = Invoke(Form().Control(), member.Name, flags, Convert(member, step.Arguments));
    if (result.Type() != VT_EMPTY) PrintLine(member.Name + L" = " + ResultText(result));
}

void Session::Do(const PointerStep& step) { MovePointer(Form(), step.Point); }

void Session::Do(const PressStep& step) {
    PressButton(Form(), step.Point);
    pressedAt_ = step.Point;
}

void Session::Do(const KeyStep& step) { PressKey(Form(), step.Key); }
void Session::Do(const WheelStep& step) { TurnWheel(Form(), step.Notches); }

// Without the dots that show where the keyboard is: a press brings it to the control, and no picture is about that.
void Session::Do(const OutStep& step) {
    SetFocus(nullptr);
    SavePng(TakeSnapshot(Form().ControlWindow()), step.Path);
}

void Session::LetGoOfButton() {
    if (const auto point = std::exchange(pressedAt_, std::nullopt)) ReleaseButton(Form(), *point);
}

void Session::OpenForm(TextPropertyBag* bag) {
    HostSwitches switches;
    switches.UserMode = !line_.DesignTime;
    FormHandlers handlers;
    handlers.Event = [](EventCall& event) { PrintLine(event.Text()); };
    const FormLayout layout = {L"framesnap", size_, PlaceOf(size_), L"VantikFrameTab1"};
    form_.reset();
    form_ = std::make_unique<HostForm>(module_, layout, switches, handlers);
    form_->Window().Show();
    if (bag) {
        form_->OpenFrom(*bag);
    } else {
        form_->OpenNew();
    }
    PumpMessages(*form_);
}

HostForm& Session::Form() {
    if (!form_) OpenForm(nullptr);
    return *form_;
}

std::vector<Variant> Session::Convert(const Member& member, const std::vector<std::wstring>& texts) const {
    std::vector<Variant> values;
    for (std::size_t i = 0; i < texts.size(); ++i)
        values.push_back(members_.Convert(member.Arguments[i], texts[i]));
    return values;
}

} // namespace vantik
