// Whoever hears from a control: of its events, its properties, its picture.
#pragma once

#include "host/NumberedDispatch.h"
#include "hostile/random/RandomDispatch.h"

namespace vantik {

// Code of a form that does things inside events, raises errors and changes the variables that it is lent.
class RandomEventSink final : public ComObject<NumberedDispatch> {
public:
    RandomEventSink(World& world, bool isTruthful) : world_(world), isTruthful_(isTruthful) {}

    STDMETHODIMP QueryInterface(REFIID id, void** object) noexcept override {
        return ComObject::QueryInterface(id == world_.Module().EventsId() ? IID_IDispatch : id, object);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO* exception,
                        UINT*) noexcept override {
        static constexpr const char* Names[] = {"?",       "DownBarDown", "PreTabDown", "NextTabDown",
                                                "TabMove", "TabDown",     "TabClose"};
        const ComPtr<RandomEventSink> alive(this);
        World& world = world_;
        const HRESULT result = world.Called(id > 0 && id < 7 ? Names[id] : Names[0]);
        for (UINT i = 0; i < parameters->cArgs; ++i) Change(parameters->rgvarg[i]);
        return FAILED(result) ? Fail(world, result, exception) : result;
    }

private:
    void Change(VARIANTARG& argument) noexcept {
        if (argument.vt != (VT_BYREF | VT_I2) || !world_.Draw.OneIn(3)) return;
        *argument.piVal = isTruthful_ ? static_cast<SHORT>(world_.Draw.Below(3)) : world_.Draw.Short();
    }

    World& world_;
    bool isTruthful_; // names tabs from 0 upwards only
};

class RandomPropertySink final : public ComObject<IPropertyNotifySink> {
public:
    explicit RandomPropertySink(World& world) : world_(world) {}
    STDMETHODIMP OnChanged(DISPID) noexcept override { return world_.Called("OnChanged"); }
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return world_.Called("OnRequestEdit"); }

private:
    World& world_;
};

template <>
inline bool IsServedBy<IAdviseSinkEx>(REFIID id) noexcept {
    return id == __uuidof(IAdviseSinkEx) || id == __uuidof(IAdviseSink);
}

class RandomAdviseSink final : public ComObject<IAdviseSinkEx> {
public:
    explicit RandomAdviseSink(World& world) : world_(world) {}
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {
        world_.Visit("OnDataChange");
    }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) noexcept override { world_.Visit("OnViewChange"); }
    STDMETHODIMP_(void) OnRename(IMoniker*) noexcept override { world_.Visit("OnRename"); }
    STDMETHODIMP_(void) OnSave() noexcept override { world_.Visit("OnSave"); }
    STDMETHODIMP_(void) OnViewStatusChange(DWORD) noexcept override { world_.Visit("OnViewStatusChange"); }
    STDMETHODIMP_(void) OnClose() noexcept override { world_.Visit("OnClose"); }

private:
    World& world_;
};

} // namespace vantik
