#include "ole/faces/PropertyPages.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "ole/com/Identifiers.h"
#include "ole/com/TaskMemory.h"
#include "ole/control/Control.h"
#include "ole/host/ModelessOff.h"
#include "ole/pages/Pages.h"

namespace vantik {

namespace {

// The control's own before the platform's.
std::vector<CLSID> AllPages() {
    std::vector<CLSID> pages;
    for (const PageClass& page : PageClasses()) pages.push_back(page.Id);
    pages.insert(pages.end(), {CLSID_CColorPropPage, CLSID_CFontPropPage, CLSID_CPicturePropPage});
    return pages;
}

// Makes a page known to the apartment, whether it is registered or not.
class KnownPage {
public:
    explicit KnownPage(const PageClass& page) {
        ComPtr<IUnknown> factory;
        Check(MakeClassFactory(page.Make, IID_IUnknown, factory.PutVoid()));
        known_ = SUCCEEDED(CoRegisterClassObject(page.Id, factory.Get(), CLSCTX_INPROC_SERVER,
                                                 REGCLS_MULTIPLEUSE, &cookie_));
    }
    ~KnownPage() {
        if (known_) CoRevokeClassObject(cookie_);
    }
    KnownPage(KnownPage&& other) noexcept
        : known_(std::exchange(other.known_, false)), cookie_(other.cookie_) {}
    KnownPage& operator=(KnownPage&&) = delete;

private:
    bool known_ = false;
    DWORD cookie_ = 0;
};

} // namespace

STDMETHODIMP PropertyPagesFace::GetPages(CAUUID* pages) noexcept {
    return Guard([&] {
        Required(pages) = {};
        const auto all = AllPages();
        auto copies = NewTaskArray<GUID>(all.size());
        std::ranges::copy(all, copies.get());
        *pages = {static_cast<ULONG>(all.size()), copies.release()};
    });
}

HRESULT ShowPropertyPages(Control& control, HWND parent, LPCRECT position) {
    const auto site = control.Site.As<IOleControlSite>();
    if (site && site->ShowPropertyFrame() == S_OK) return S_OK;
    const auto object = QueryFor<IUnknown>(&control.Controlling);
    IUnknown* objects[] = {object.Get()};
    auto pages = AllPages();
    std::vector<KnownPage> known;
    for (const PageClass& page : PageClasses()) known.emplace_back(page);
    const ModelessOff off(control.Place.Frame());
    return OleCreatePropertyFrame(parent, position ? static_cast<UINT>(position->left) : 0,
                                  position ? static_cast<UINT>(position->top) : 0, ControlTitle, 1, objects,
                                  static_cast<ULONG>(pages.size()), pages.data(), LOCALE_USER_DEFAULT, 0,
                                  nullptr);
}

} // namespace vantik
