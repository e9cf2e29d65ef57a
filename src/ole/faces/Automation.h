// The dual interface of the control.
#pragma once

#include <optional>

#include "ole/com/Face.h"
#include "ole/com/Identifiers.h"
#include "ole/dispatch/MemberTable.h"

namespace vantik {

class Control;

class Automation final : public Face<::_VantikFrameTab> {
public:
    explicit Automation(Control& control) noexcept;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

    STDMETHODIMP get_TabCount(short* value) noexcept override;
    STDMETHODIMP put_TabCount(short value) noexcept override;
    STDMETHODIMP get_ActiveTab(short* value) noexcept override;
    STDMETHODIMP put_ActiveTab(short value) noexcept override;
    STDMETHODIMP InsertTab(short afterIndex, BSTR* caption) noexcept override;
    STDMETHODIMP RemoveTab(short index) noexcept override;
    STDMETHODIMP SetBarIco(short* index, BSTR* key) noexcept override;
    STDMETHODIMP SetBarCaption(short* index, BSTR* caption, VARIANT_BOOL* refresh) noexcept override;
    STDMETHODIMP SetBarEnable(short* index, VARIANT_BOOL* enable) noexcept override;
    STDMETHODIMP GetTabCaption(short* index, BSTR* result) noexcept override;
    STDMETHODIMP GetTabEnable(short* index, VARIANT_BOOL* result) noexcept override;
    STDMETHODIMP GetTabIco(short* index, BSTR* result) noexcept override;

    STDMETHODIMP get_Picture(IPictureDisp** value) noexcept override;
    STDMETHODIMP putref_Picture(IPictureDisp* value) noexcept override;
    STDMETHODIMP put_Picture(IPictureDisp* value) noexcept override { return putref_Picture(value); }
    STDMETHODIMP get_Font(IFontDisp** value) noexcept override;
    STDMETHODIMP putref_Font(IFontDisp* value) noexcept override;
    STDMETHODIMP put_Font(IFontDisp* value) noexcept override { return putref_Font(value); }
    STDMETHODIMP get_SkinFile(BSTR* value) noexcept override { return Get(Property::SkinFile, value); }
    STDMETHODIMP put_SkinFile(BSTR value) noexcept override;
    STDMETHODIMP get_SkinPath(BSTR* value) noexcept override { return Get(Property::SkinPath, value); }
    STDMETHODIMP put_SkinPath(BSTR value) noexcept override;

    STDMETHODIMP About() noexcept override;
    STDMETHODIMP zSubclass_Proc(VARIANT_BOOL before, VARIANT_BOOL* handled, long* result, long* window,
                                long* message, long* wParam, long* lParam) noexcept override;

// Properties that are nothing but their row in the property table.
#define VANTIK_PROPERTY(Type, Name)                                                               \
    STDMETHODIMP get_##Name(Type* value) noexcept override { return Get(Property::Name, value); } \
    STDMETHODIMP put_##Name(Type value) noexcept override { return Let(Property::Name, Plain(value)); }
#define VANTIK_FLAG(Name)                                                                                 \
    STDMETHODIMP get_##Name(VARIANT_BOOL* value) noexcept override { return Get(Property::Name, value); } \
    STDMETHODIMP put_##Name(VARIANT_BOOL value) noexcept override { return Let(Property::Name, Flag(value)); }

    VANTIK_PROPERTY(::dTabBarPos, TabBarPos)
    VANTIK_PROPERTY(::dTabPos, TabPos)
    VANTIK_PROPERTY(short, BarWidth)
    VANTIK_PROPERTY(short, TabBarPosXJust)
    VANTIK_PROPERTY(short, TabBarPosYJust)
    VANTIK_PROPERTY(long, TabOffSet)
    VANTIK_PROPERTY(BSTR, DefaultCaption)
    VANTIK_PROPERTY(::FontPos, CaptionPos)
    VANTIK_PROPERTY(OLE_COLOR, CaptionColor0)
    VANTIK_PROPERTY(OLE_COLOR, CaptionColor1)
    VANTIK_PROPERTY(short, CaptionXjust)
    VANTIK_PROPERTY(short, CaptionYjust)
    VANTIK_PROPERTY(short, IcoXjust)
    VANTIK_PROPERTY(short, IcoYjust)
    VANTIK_FLAG(DelButton)
    VANTIK_PROPERTY(short, DelBtnXJust)
    VANTIK_PROPERTY(short, DelBtnYJust)
    VANTIK_PROPERTY(short, NavBtnYjust)
    VANTIK_PROPERTY(short, NavBtnXjust)
    VANTIK_PROPERTY(BSTR, FixOcxList)
    VANTIK_PROPERTY(short, TabToTab)
    VANTIK_FLAG(TabBorder)
    VANTIK_PROPERTY(short, FrameDist)

#undef VANTIK_PROPERTY
#undef VANTIK_FLAG

private:
    // Any nonzero number is true to a caller, but there is one True inside.
    static Boolean Flag(VARIANT_BOOL value) noexcept { return value ? True : False; }

    // The type of the engine for a type of the interface: enumerations and colours are 32-bit numbers.
    static std::int16_t Plain(short value) noexcept { return value; }
    template <class Number>
    static std::int32_t Plain(Number value) noexcept {
        return static_cast<std::int32_t>(value);
    }
    static BSTR Plain(BSTR value) noexcept { return value; }

    HRESULT Get(Property property, short* value) noexcept;
    HRESULT Get(Property property, BSTR* value) noexcept;
    template <class Number>
    HRESULT Get(Property property, Number* value) noexcept;
    HRESULT Let(Property property, std::int16_t value) noexcept;
    HRESULT Let(Property property, std::int32_t value) noexcept;
    HRESULT Let(Property property, BSTR value) noexcept;

    // Runs an operation on the engine, which has its values by then; the caller is told of an error in full.
    template <class Operation>
    HRESULT Ask(Operation operation) const noexcept;
    // The same for an operation that changes something.
    template <class Operation>
    HRESULT Do(Operation operation) noexcept;

    const MemberTable& Members();

    Control& control_;
    std::optional<MemberTable> members_; // read on first use
};

} // namespace vantik
