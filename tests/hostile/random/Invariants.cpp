#include "hostile/random/Invariants.h"

#include "host/HostError.h"
#include "host/Variant.h"
#include "hostile/random/World.h"
#include "tests/gfx/GdiObjects.h"

namespace vantik {

namespace {

void Require(bool holds, const char* what, int found) {
    if (!holds) throw HostError(std::string(what) + ": " + std::to_string(found));
}

std::wstring CaptionAt(::_VantikFrameTab& control, int index) {
    Bstr caption(L"");
    auto place = static_cast<short>(index);
    SysFreeString(caption.Detach());
    Check(control.GetTabCaption(&place, caption.Put()), "reading a caption");
    return caption.Text();
}

bool IsEnabledAt(::_VantikFrameTab& control, int index) {
    VARIANT_BOOL enabled = VARIANT_FALSE;
    auto place = static_cast<short>(index);
    Check(control.GetTabEnable(&place, &enabled), "reading whether a tab is enabled");
    return enabled != VARIANT_FALSE;
}

// Beside the tabs there are none.
void CheckTabs(::_VantikFrameTab& control, short count) {
    for (const int beside : {-1, int{count}})
        if (beside <= INT16_MAX && (CaptionAt(control, beside) != L"-1" || IsEnabledAt(control, beside)))
            throw HostError("there is a tab at " + std::to_string(beside) + " of " + std::to_string(count));
    for (const int index : {0, count / 2, count - 1})
        if (index >= 0 && index < count) CaptionAt(control, index);
}

} // namespace

void CheckControl(const Place& place) {
    const auto control = place.Control.As<::_VantikFrameTab>();
    if (!control) return;
    short count = 0, active = 0, width = 0;
    Check(control->get_TabCount(&count), "reading TabCount");
    Check(control->get_ActiveTab(&active), "reading ActiveTab");
    Check(control->get_BarWidth(&width), "reading BarWidth");
    Require(count >= 0, "TabCount", count);
    CheckTabs(*control.Get(), count);
    if (place.IsTrue) Require(active >= -1 && active <= count, "ActiveTab beside the tabs", active);
}

void CheckProcess() {
    const HANDLE heap = GetProcessHeap();
    if (!HeapValidate(heap, 0, nullptr)) throw HostError("the heap is damaged");
    Require(test::GdiObjectCount() < 3000, "GDI objects", test::GdiObjectCount());
}

} // namespace vantik
