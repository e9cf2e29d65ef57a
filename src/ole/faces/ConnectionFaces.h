// How hosts find the control's outgoing interfaces and its description.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class ConnectionContainerFace final : public Face<IConnectionPointContainer> {
public:
    explicit ConnectionContainerFace(Control& control) noexcept;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** enumerator) noexcept override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

private:
    Control& control_;
};

class ClassInfoFace final : public Face<IProvideClassInfo2> {
public:
    using Face::Face;
    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) noexcept override;
};

class ErrorSupportFace final : public Face<ISupportErrorInfo> {
public:
    using Face::Face;
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override;
};

} // namespace vantik
