#include "ole/faces/Automation.h"

#include "ole/com/TypeInfo.h"
#include "ole/com/Variant.h"
#include "ole/control/Control.h"
#include "ole/dispatch/DispatchCall.h"

namespace vantik {

Automation::Automation(Control& control) noexcept : Face(control.Controlling), control_(control) {}

namespace {

// Those who watch are told of a change to one tab, also where the drawing of it failed.
class TabChange {
public:
    TabChange(Control& control, std::int16_t tab, TabAspect aspect) noexcept
        : control_(control), tab_(tab), aspect_(aspect) {}
    ~TabChange() { control_.Place.Watching().TabChanged(tab_, aspect_); }
    TabChange(const TabChange&) = delete;
    TabChange& operator=(const TabChange&) = delete;

private:
    Control& control_;
    std::int16_t tab_;
    TabAspect aspect_;
};

} // namespace

template <class Operation>
HRESULT Automation::Ask(Operation operation) const noexcept {
    return GuardAndTell([&] {
        control_.Document.Need();
        operation(control_.Engine);
    });
}

template <class Operation>
HRESULT Automation::Do(Operation operation) noexcept {
    return Ask([&](VantikFrameTab& engine) {
        struct Announcement { // an operation that ended early may have changed something, too
            Control& Changed;
            ~Announcement() { Changed.ShowChanges(); }
        } announcement{control_};
        operation(engine);
    });
}

HRESULT Automation::Get(Property property, short* value) noexcept {
    return Ask([&](const VantikFrameTab& engine) { Required(value) = engine.Get<std::int16_t>(property); });
}

template <class Number>
HRESULT Automation::Get(Property property, Number* value) noexcept {
    return Ask([&](const VantikFrameTab& engine) {
        Required(value) = static_cast<Number>(engine.Get<std::int32_t>(property));
    });
}

HRESULT Automation::Get(Property property, BSTR* value) noexcept {
    return Ask([&](const VantikFrameTab& engine) {
        Required(value) = NewBstr(engine.Get<std::u16string>(property));
    });
}

HRESULT Automation::Let(Property property, std::int16_t value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.Let(property, value); });
}

HRESULT Automation::Let(Property property, std::int32_t value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.Let(property, value); });
}

HRESULT Automation::Let(Property property, BSTR value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.Let(property, FromBstr(value)); });
}

// Also what the properties in the header are made of.
template HRESULT Automation::Get(Property, long*) noexcept;
template HRESULT Automation::Get(Property, OLE_COLOR*) noexcept;
template HRESULT Automation::Get(Property, ::dTabBarPos*) noexcept;
template HRESULT Automation::Get(Property, ::dTabPos*) noexcept;
template HRESULT Automation::Get(Property, ::FontPos*) noexcept;

STDMETHODIMP Automation::get_TabCount(short* value) noexcept {
    return Ask([&](const VantikFrameTab& engine) { Required(value) = engine.TabCount(); });
}

STDMETHODIMP Automation::put_TabCount(short value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.TabCount(value); });
}

STDMETHODIMP Automation::get_ActiveTab(short* value) noexcept {
    return Ask([&](const VantikFrameTab& engine) { Required(value) = engine.ActiveTab(); });
}

STDMETHODIMP Automation::put_ActiveTab(short value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.ActiveTab(value); });
}

// The caption that the engine chose goes back into the caller's variable, also when the insertion ended early after that.
STDMETHODIMP Automation::InsertTab(short afterIndex, BSTR* caption) noexcept {
    return Do([&](VantikFrameTab& engine) {
        const std::u16string given = caption ? FromBstr(*caption) : std::u16string();
        std::u16string chosen = given;
        struct WriteBack {
            const std::u16string &Given, &Chosen;
            BSTR* Caption;
            ~WriteBack() {
                if (Caption && Chosen != Given)
                    SysReAllocStringLen(Caption, AsWide(Chosen), UINT(Chosen.size()));
            }
        } writeBack{given, chosen, caption};
        engine.InsertTab(afterIndex, chosen);
    });
}

STDMETHODIMP Automation::RemoveTab(short index) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.RemoveTab(index); });
}

STDMETHODIMP Automation::SetBarIco(short* index, BSTR* key) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.SetBarIco(Required(index), FromBstr(Required(key))); });
}

STDMETHODIMP Automation::SetBarCaption(short* index, BSTR* caption, VARIANT_BOOL* refresh) noexcept {
    return Do([&](VantikFrameTab& engine) {
        const std::u16string text = caption ? FromBstr(*caption) : std::u16string();
        const std::int16_t tab = Required(index);
        std::optional<TabChange> change;
        if (engine.State().HasTab(tab) && engine.State().Tabs(tab).Caption != text)
            change.emplace(control_, tab, TabAspect::Name);
        engine.SetBarCaption(tab, text, Flag(refresh ? *refresh : VARIANT_FALSE));
    });
}

STDMETHODIMP Automation::SetBarEnable(short* index, VARIANT_BOOL* enable) noexcept {
    return Do([&](VantikFrameTab& engine) {
        const std::int16_t tab = Required(index);
        const Boolean value = Flag(Required(enable));
        std::optional<TabChange> change;
        if (engine.State().HasTab(tab) && engine.GetTabEnable(tab) != value)
            change.emplace(control_, tab, TabAspect::Usability);
        engine.SetBarEnable(tab, value);
    });
}

STDMETHODIMP Automation::GetTabCaption(short* index, BSTR* result) noexcept {
    return Ask([&](const VantikFrameTab& engine) {
        Required(result) = NewBstr(engine.GetTabCaption(Required(index)));
    });
}

STDMETHODIMP Automation::GetTabEnable(short* index, VARIANT_BOOL* result) noexcept {
    return Ask(
        [&](const VantikFrameTab& engine) { Required(result) = engine.GetTabEnable(Required(index)); });
}

STDMETHODIMP Automation::GetTabIco(short* index, BSTR* result) noexcept {
    return Ask(
        [&](const VantikFrameTab& engine) { Required(result) = NewBstr(engine.GetTabIco(Required(index))); });
}

STDMETHODIMP Automation::get_Picture(IPictureDisp** value) noexcept {
    return Ask([&](const VantikFrameTab& engine) { Required(value) = engine.Picture().Copy(); });
}

STDMETHODIMP Automation::putref_Picture(IPictureDisp* value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.Picture(ComPtr<IPictureDisp>(value)); });
}

STDMETHODIMP Automation::get_Font(IFontDisp** value) noexcept {
    return Ask([&](const VantikFrameTab& engine) { Required(value) = engine.Font().Copy(); });
}

STDMETHODIMP Automation::putref_Font(IFontDisp* value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.Font(ComPtr<IFontDisp>(value)); });
}

STDMETHODIMP Automation::put_SkinFile(BSTR value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.SkinFile(FromBstr(value)); });
}

STDMETHODIMP Automation::put_SkinPath(BSTR value) noexcept {
    return Do([&](VantikFrameTab& engine) { engine.SkinPath(FromBstr(value)); });
}

STDMETHODIMP Automation::About() noexcept {
    return Do([](VantikFrameTab& engine) { engine.About(); });
}

STDMETHODIMP Automation::zSubclass_Proc(VARIANT_BOOL before, VARIANT_BOOL* handled, long* result,
                                        long* window, long* message, long* wParam, long* lParam) noexcept {
    return Do([&](VantikFrameTab& engine) {
        std::int32_t numbers[] = {Required(result), Required(window), Required(message), Required(wParam),
                                  Required(lParam)};
        auto& [resultNumber, windowNumber, messageNumber, wNumber, lNumber] = numbers;
        engine.zSubclass_Proc(Flag(before), Required(handled), resultNumber, windowNumber, messageNumber,
                              wNumber, lNumber);
        *result = resultNumber, *window = windowNumber, *message = messageNumber;
        *wParam = wNumber, *lParam = lNumber;
    });
}

const MemberTable& Automation::Members() {
    if (!members_) members_.emplace(OwnTypeInfo(IID__VantikFrameTab));
    return *members_;
}

STDMETHODIMP Automation::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

STDMETHODIMP Automation::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return Guard([&] { *info = ComPtr<ITypeInfo>(&Members().Description()).Copy(); });
}

STDMETHODIMP Automation::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids) return E_POINTER;
    return Guard([&] { return Members().Description().GetIDsOfNames(names, count, ids); });
}

STDMETHODIMP Automation::Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_POINTER;
    return Guard([&]() -> HRESULT {
        const Member* found = Members().Find(member, flags);
        if (!found) return DISP_E_MEMBERNOTFOUND;
        DispatchCall call(*found, Members().Description(), locale);
        return call.Invoke(*this, *parameters, result, exception, wrongArgument);
    });
}

} // namespace vantik
