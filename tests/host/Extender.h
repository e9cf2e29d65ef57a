// What a form adds to everything that stands on it: name, place and container, as one automation object.
#pragma once

#include <optional>
#include <string>

#include "host/ComObject.h"
#include "host/Variant.h"

namespace vantik {

// In twips, relative to the container. A position keeps its fraction of a pixel.
struct Placement {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
};

double TwipsPerPixel();
double ToTwips(int pixels);
int ToPixels(double twips);
Placement ToPlacement(const RECT& pixels);
RECT ToPixels(const Placement& place);

// Something that stands on a form.
class FormItem {
public:
    virtual const std::wstring& Name() const noexcept = 0;
    virtual const Placement& Place() const noexcept = 0;
    virtual void Place(const Placement& place) = 0;
    virtual bool Visible() const noexcept = 0;
    virtual void Visible(bool visible) = 0;
    virtual ComPtr<IDispatch> Container() = 0; // the extender of what it stands on; null on the form itself
    virtual ComPtr<IUnknown> Object() = 0;

protected:
    ~FormItem() = default;
};

class Extender final : public ComObject<IDispatch> {
public:
    // The item outlives the extender or says Detach.
    explicit Extender(FormItem& item) noexcept : item_(&item) {}
    void Detach() noexcept { item_ = nullptr; }

    // A form whose extenders do not know a member at all.
    void Forget(std::wstring member) { forgotten_ = std::move(member); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) noexcept override;

private:
    Variant Read(DISPID id) const;
    void Write(DISPID id, const Variant& value);

    FormItem* item_;
    std::wstring forgotten_;
};

} // namespace vantik
