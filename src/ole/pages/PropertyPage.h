// A property page: the dialog, the objects that it edits, and what was edited of them and not applied yet.
#pragma once

#include <atomic>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "ole/com/Module.h"
#include "ole/pages/EditedObjects.h"
#include "ole/pages/Field.h"
#include "ole/pages/PageDialog.h"
#include "ole/pages/PropertyWatch.h"
#include "ole/pages/ScratchControl.h"

namespace vantik {

class PropertyPage : public IPropertyPage2, private PageDialog::Owner, private PropertyListener {
public:
    // The dialog's number is the page's, too.
    PropertyPage(WORD dialog, std::span<const Field> fields);
    PropertyPage(const PropertyPage&) = delete;
    PropertyPage& operator=(const PropertyPage&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;

    STDMETHODIMP SetPageSite(IPropertyPageSite* site) noexcept override;
    STDMETHODIMP Activate(HWND parent, LPCRECT place, BOOL modal) noexcept override;
    STDMETHODIMP Deactivate() noexcept override;
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) noexcept override;
    STDMETHODIMP SetObjects(ULONG count, IUnknown** objects) noexcept override;
    STDMETHODIMP Show(UINT command) noexcept override;
    STDMETHODIMP Move(LPCRECT place) noexcept override;
    STDMETHODIMP IsPageDirty() noexcept override;
    STDMETHODIMP Apply() noexcept override;
    STDMETHODIMP Help(LPCOLESTR folder) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;
    STDMETHODIMP EditProperty(DISPID property) noexcept override;

protected:
    virtual ~PropertyPage() = default;

    // What a page has besides fields. Wanted: all that is edited, to be assigned in this order; raises where it makes no
    // sense.
    virtual void FillLists() {}
    virtual void ShowRest() {}
    virtual void Beside(WORD /*control*/, WORD /*what*/) {} // happened to what is no field
    virtual void DrawBeside(WORD /*control*/, const DRAWITEMSTRUCT&) {}
    virtual void Focused(WORD control);
    virtual void TextEntered(Property) {}
    virtual std::vector<Assignment> Wanted() const;
    virtual bool IsEdited() const noexcept;
    virtual void Forget() noexcept; // what was edited

    HWND Item(WORD control) const noexcept { return dialog_.Item(control); }
    const EditedObjects& Objects() const noexcept { return objects_; }

    // What was entered and not applied, and what shows: that, or what the objects have in common.
    std::optional<std::u16string> Entered(Property property) const;
    std::optional<std::u16string> Shown(Property property) const;
    void Enter(Property property, std::u16string value);

    void Edited() noexcept; // by whatever way
    void RefreshSoon() noexcept { dialog_.RefreshSoon(); }

private:
    class Showing;

    // PageDialog::Owner
    void Opened() override;
    void Command(WORD control, WORD what) override;
    void Refresh() override;
    void Draw(WORD control, const DRAWITEMSTRUCT& item) override;
    IUnknown& Object() noexcept override { return *this; }

    void PropertyChanged() noexcept override { dialog_.RefreshSoon(); }

    std::size_t IndexOf(Property property) const noexcept;
    const Field* FieldOf(WORD control) const noexcept;
    void TakeFrom(const Field& field, WORD what);
    void ShowFields();
    void ShowPicture();
    void DrawPicture(HDC dc, const RECT& place) const;
    void ShowStatus();
    void FocusWanted() noexcept;
    void ApplyWanted();
    bool LeavesPage(MSG& message) const;

    template <class Body>
    HRESULT Guard(Body body) noexcept;

    ModuleReference module_;
    std::atomic<ULONG> references_ = 1;
    const WORD number_;
    const std::span<const Field> fields_;
    std::vector<std::optional<std::u16string>> entered_; // by field
    ComPtr<IPropertyPageSite> site_;
    EditedObjects objects_;
    std::vector<PropertyWatch> watches_;
    std::optional<ScratchControl> scratch_;
    std::u16string applyFault_, scratchFault_;
    WORD focused_ = 0, wanted_ = 0; // controls of the dialog
    bool showing_ = false;          // the page changes its fields itself
    PageDialog dialog_{*this};
};

} // namespace vantik
