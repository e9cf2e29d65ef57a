#include "ole/host/Children.h"

#include "ole/com/ErrorInfo.h"
#include "ole/com/LateBound.h"
#include "ole/host/ChildWindow.h"
#include "ole/host/ExtenderChild.h"
#include "ole/host/IVBGetControl.h"

namespace vantik {

namespace {

bool IsSame(const ComPtr<IUnknown>& a, IUnknown* b) { return a && a.Get() == QueryFor<IUnknown>(b).Get(); }

// The host's object for the control: its extender, or the object itself where it answers names by itself.
ComPtr<IDispatch> ExtenderOf(IUnknown* object) {
    const auto ole = QueryFor<IOleObject>(object);
    if (!ole) return QueryFor<IDispatch>(object);
    ComPtr<IOleClientSite> pointer;
    if (FAILED(ole->GetClientSite(pointer.Put()))) return nullptr;
    ClientSite site;
    site.Set(pointer.Get());
    return site.ExtendedControl();
}

HWND WindowOf(IUnknown* object) {
    HWND window = nullptr;
    const auto ole = QueryFor<IOleWindow>(object);
    return ole && SUCCEEDED(ole->GetWindow(&window)) ? window : nullptr;
}

ComPtr<IUnknown> ContainerOf(IDispatch* extender) {
    Variant container;
    try {
        GetProperty(extender, L"Container", container);
    } catch (const RunTimeError&) {
        return nullptr; // a host that does not say
    }
    return container.Object<IUnknown>();
}

template <class Visit>
void ForEach(IEnumUnknown& objects, Visit visit) {
    ComPtr<IUnknown> object;
    while (objects.Next(1, object.Put(), nullptr) == S_OK && object) visit(object.Get());
}

// The whole search for one set of children.
class Search {
public:
    explicit Search(const ChildSearch& parts)
        : parts_(parts),
          self_(QueryFor<IUnknown>(&parts.Control)),
          ownExtender_(QueryFor<IUnknown>(parts.Site.ExtendedControl().Get())) {}

    // Whether the host answers; its answer may be that there are none.
    bool AskSite(ChildList& children) const {
        const auto host = parts_.Site.As<IVBGetControl>();
        ComPtr<IEnumUnknown> contained;
        if (!host ||
            FAILED(host->EnumControls(OLECONTF_EMBEDDINGS | OLECONTF_OTHERS, GC_WCH_CONTAINED,
                                      contained.Put())) ||
            !contained)
            return false;
        ForEach(*contained.Get(),
                [&](IUnknown* object) { children.push_back(ChildOf(object, ExtenderOf(object))); });
        return true;
    }

    // The container lists all objects of the form, of which few stand here. Finding none is no answer.
    bool AskContainer(ChildList& children) const {
        const auto container = parts_.Site.Container();
        ComPtr<IEnumUnknown> objects;
        if (!container ||
            FAILED(container->EnumObjects(OLECONTF_EMBEDDINGS | OLECONTF_OTHERS, objects.Put())) || !objects)
            return false;
        ForEach(*objects.Get(), [&](IUnknown* object) {
            auto extender = ExtenderOf(object);
            if (!IsSame(self_, object) && StandsHere(object, extender.Get()))
                children.push_back(ChildOf(object, std::move(extender)));
        });
        return !children.empty();
    }

    void TakeWindows(ChildList& children) const {
        if (!parts_.Window) return;
        for (HWND child = GetWindow(parts_.Window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (child != parts_.NoChild)
                children.push_back(std::make_unique<ChildWindow>(child, parts_.Screen));
    }

private:
    bool StandsHere(IUnknown* object, IDispatch* extender) const {
        const HWND window = WindowOf(object);
        if (window && parts_.Window && GetParent(window) == parts_.Window) return true;
        const auto container = ContainerOf(extender);
        return container && (IsSame(self_, container.Get()) || IsSame(ownExtender_, container.Get()));
    }

    // An object without an extender is moved by its window.
    std::unique_ptr<ChildControl> ChildOf(IUnknown* object, ComPtr<IDispatch> extender) const {
        const HWND window = extender ? nullptr : WindowOf(object);
        if (window && GetParent(window) == parts_.Window)
            return std::make_unique<ChildWindow>(window, parts_.Screen);
        return std::make_unique<ExtenderChild>(std::move(extender));
    }

    const ChildSearch& parts_;
    ComPtr<IUnknown> self_, ownExtender_;
};

} // namespace

ChildList FindChildren(const ChildSearch& parts) {
    ChildList children;
    const Search search(parts);
    if (!search.AskSite(children) && !search.AskContainer(children)) search.TakeWindows(children);
    return children;
}

} // namespace vantik
