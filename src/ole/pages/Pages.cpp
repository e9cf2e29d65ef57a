#include "ole/pages/Pages.h"

#include "ole/com/Identifiers.h"
#include "ole/pages/GeneralPage.h"
#include "ole/pages/SkinPage.h"

namespace vantik {

namespace {

template <class Page>
HRESULT MakePage(IUnknown* outer, REFIID iid, void** object) {
    if (outer) return CLASS_E_NOAGGREGATION;
    const auto page = ComPtr<IPropertyPage2>::Adopt(new Page);
    return page->QueryInterface(iid, object);
}

const PageClass Classes[] = {
    {CLSID_GeneralPage, L"Vantik Frame Tab: page General", MakePage<GeneralPage>},
    {CLSID_SkinPage, L"Vantik Frame Tab: page Skin", MakePage<SkinPage>},
};

} // namespace

std::span<const PageClass> PageClasses() noexcept { return Classes; }

} // namespace vantik
