#include "tests/render/FakeUserControl.h"

#include <algorithm>
#include <utility>

#include "base/RunTimeError.h"

namespace vantik::test {

namespace {

class ChildOf final : public ChildControl {
public:
    ChildOf(FakeUserControl& host, std::size_t index) : host_(host), index_(index) {}

    double Left() override {
        Need(&FakeChild::HasLeft);
        return Child().Left;
    }
    void Left(double left) override {
        Need(&FakeChild::HasLeft);
        Child().Left = left;
    }
    std::u16string Name() override {
        Need(&FakeChild::HasName);
        return Child().Name;
    }
    void Visible(Boolean visible) override {
        Need(&FakeChild::HasVisible);
        Child().Visible = visible;
    }

private:
    FakeChild& Child() { return host_.Children.at(index_); }
    void Need(bool FakeChild::*property) {
        if (!(Child().*property)) Raise(RunTimeErrorNumber::NoSuchMember);
    }

    FakeUserControl& host_;
    std::size_t index_;
};

std::string AsciiOf(const char16_t* text) {
    std::string ascii;
    for (; *text; ++text) ascii.push_back(static_cast<char>(*text));
    return ascii;
}

template <class... Numbers>
std::string Entry(const char* name, Numbers... numbers) {
    std::string entry = name;
    ((entry += " " + std::to_string(numbers)), ...);
    return entry;
}

} // namespace

FakeUserControl::FakeUserControl(std::int32_t width, std::int32_t height, bool withWindow)
    : Font(FontOf(u"DejaVu Sans", 9)) {
    if (withWindow) {
        window_ = CreateWindowExW(WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, width,
                                  height, nullptr, nullptr, nullptr, nullptr);
    }
    Resize(width, height);
    TakeInvalidated();
}

FakeUserControl::~FakeUserControl() {
    if (window_) DestroyWindow(window_);
}

void FakeUserControl::Resize(std::int32_t width, std::int32_t height) {
    WidthTwips = width * TwipsPerPixel;
    HeightTwips = height * TwipsPerPixel;
    surface_.emplace(width, height);
    if (window_)
        SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

HDC FakeUserControl::hDC() {
    if (OnDraw) OnDraw();
    return surface_->DC();
}

bool FakeUserControl::ReadSurface(const RECT& area, std::span<std::uint32_t> rows) {
    const Pixels part = surface_->ReadPart(area);
    std::ranges::copy(part.Values, rows.begin());
    return true;
}

void FakeUserControl::Cls() {
    Log("Cls");
    surface_->Clear(BackColour);
}

void FakeUserControl::Refresh() { Log("Refresh"); }

void FakeUserControl::PropertyChanged(Property property) {
    if (OnCall) OnCall();
    Log("PropertyChanged " + AsciiOf(InfoOf(property).Key));
}

std::vector<std::unique_ptr<ChildControl>> FakeUserControl::ChildControls() {
    if (OnCall) OnCall();
    std::vector<std::unique_ptr<ChildControl>> children;
    for (std::size_t i = 0; i < Children.size(); ++i) children.push_back(std::make_unique<ChildOf>(*this, i));
    return children;
}

void FakeUserControl::MsgBox(const std::u16string& text) {
    Log("MsgBox");
    Messages.push_back(text);
}

void FakeUserControl::DownBarDown() {
    if (OnCall) OnCall();
    Log("DownBarDown");
    if (On.DownBarDown) On.DownBarDown();
}

void FakeUserControl::PreTabDown(std::int16_t& firstPos) {
    if (OnCall) OnCall();
    Log(Entry("PreTabDown", firstPos));
    if (On.PreTabDown) On.PreTabDown(firstPos);
}

void FakeUserControl::NextTabDown(std::int16_t& firstPos) {
    if (OnCall) OnCall();
    Log(Entry("NextTabDown", firstPos));
    if (On.NextTabDown) On.NextTabDown(firstPos);
}

void FakeUserControl::TabMove(std::int16_t& index) {
    if (OnCall) OnCall();
    Log(Entry("TabMove", index));
    if (On.TabMove) On.TabMove(index);
}

void FakeUserControl::TabDown(std::int16_t& index, std::int16_t& button) {
    if (OnCall) OnCall();
    Log(Entry("TabDown", index, button));
    if (On.TabDown) On.TabDown(index, button);
}

void FakeUserControl::TabClose(std::int16_t& index) {
    if (OnCall) OnCall();
    Log(Entry("TabClose", index));
    if (On.TabClose) On.TabClose(index);
}

void FakeUserControl::Log(const std::string& entry) {
    if (!log_.empty()) log_ += "; ";
    log_ += entry;
}

std::string FakeUserControl::TakeLog() { return std::exchange(log_, {}); }

std::string FakeUserControl::TakeInvalidated() {
    RECT area;
    if (!window_ || !GetUpdateRect(window_, &area, FALSE)) return {};
    ValidateRect(window_, nullptr);
    const auto text = [](LONG value) { return std::to_string(value); };
    return text(area.left) + "," + text(area.top) + "," + text(area.right) + "," + text(area.bottom);
}

ComPtr<IFontDisp> FontOf(const std::u16string& name, int points) {
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    std::u16string copy = name;
    description.lpstrName = AsWide(copy.data());
    description.cySize.int64 = points * 10000;
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    ComPtr<IFontDisp> font;
    OleCreateFontIndirect(&description, IID_IFontDisp, font.PutVoid());
    return font;
}

} // namespace vantik::test
