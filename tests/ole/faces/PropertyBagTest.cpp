// Property bags that fail, that hold anything, or that call back into the control.
#include <doctest/doctest.h>

#include <functional>
#include <limits>

#include "host/ComObject.h"
#include "ole/Canvas.h"
#include "ole/faces/SavedControl.h"

namespace vantik {

namespace {

// A bag in which one value cannot be read.
class BrokenBag final : public ComObject<IPropertyBag> {
public:
    explicit BrokenBag(HRESULT answer) : answer_(answer) {}
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        if (std::wstring_view(name) == L"BarWidth") return answer_;
        if (std::wstring_view(name) != L"TabToTab") return E_INVALIDARG;
        value->vt = VT_BSTR;
        value->bstrVal = SysAllocString(L"7");
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) noexcept override { return answer_; }

private:
    HRESULT answer_;
};

class RecordingLog final : public ComObject<IErrorLog> {
public:
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* exception) noexcept override {
        Names.push_back(name);
        Code = exception->scode;
        return S_OK;
    }
    std::vector<std::wstring> Names;
    HRESULT Code = S_OK;
};

constexpr const wchar_t* AllKeys[] = {
    L"TabCount",       L"ActiveTab",      L"Picture",      L"TabBarPos",      L"TabPos",      L"BarWidth",
    L"TabBarPosXJust", L"TabBarPosYJust", L"TabOffSet",    L"DefaultCaption", L"Font",        L"CaptionPos",
    L"CaptionColor0",  L"CaptionColor1",  L"CaptionXjust", L"CaptionYjust",   L"IcoXjust",    L"IcoYjust",
    L"DelButton",      L"DelBtnXJust",    L"DelBtnYJust",  L"NavBtnYjust",    L"NavBtnXjust", L"FixOcxList",
    L"TabToTab",       L"TabBorder",      L"FrameDist",    L"SkinFile",       L"SkinPath"};

// Three tabs, and something that happens when one key is read.
class WatchedBag final : public ComObject<IPropertyBag> {
public:
    WatchedBag(std::wstring_view key, std::function<HRESULT()> during)
        : key_(key), during_(std::move(during)) {}
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        if (name == key_) {
            const HRESULT result = during_();
            if (FAILED(result)) return result;
        }
        if (std::wstring_view(name) != L"TabCount") return E_INVALIDARG;
        value->vt = VT_I2;
        value->iVal = 3;
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) noexcept override { return E_NOTIMPL; }

private:
    std::wstring_view key_;
    std::function<HRESULT()> during_;
};

// What a host may do with a control after a load, whatever came of that. Every member throws where it fails.
void CheckThatEveryMemberWorks(LooseControl& control) {
    IDispatch& tab = control.Dispatch();
    const auto count = [&] { return static_cast<std::int16_t>(Get(tab, L"TabCount").Number()); };
    try {
        StateOf(control);
        for (std::int16_t i = 0; i < count(); ++i) {
            CHECK(!Call(tab, L"GetTabCaption", {i}).Text().empty());
            CHECK(Call(tab, L"GetTabEnable", {i}).Flag());
            Call(tab, L"GetTabIco", {i});
            Call(tab, L"SetBarCaption", {i, L"caption", true});
            Call(tab, L"SetBarIco", {i, L"sun"});
            Call(tab, L"SetBarEnable", {i, true});
            Put(tab, L"ActiveTab", i);
        }
        Change(control);
        Call(tab, L"InsertTab", {std::int16_t{1}});
        Call(tab, L"RemoveTab", {std::int16_t{2}});
        CHECK(count() == 4);
        const Canvas canvas(300, 200);
        Draw(control.Object(), canvas.DC(), {0, 0, 300, 200});
    } catch (const AutomationError& error) {
        FAIL(error.what());
    }
}

} // namespace

TEST_CASE("After a load that fails at any key, by any route, every member works") {
    for (const wchar_t* key : AllKeys) {
        CAPTURE(ToUtf8(key));
        SavedBytes saved;
        if (key != AllKeys[0]) saved.Add(u"TabCount", VT_I2, {3});
        saved.Add(FromWide(key), 0x7777, {1});
        for (const std::int16_t before : {std::int16_t{0}, std::int16_t{8}}) {
            LooseControl byBag, byStream, byStorage;
            for (LooseControl* control : {&byBag, &byStream, &byStorage})
                if (before) Put(control->Dispatch(), L"TabCount", before);
            const auto bag = MakeCom<WatchedBag>(key, [] { return STG_E_READFAULT; });
            CHECK(byBag.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr) == STG_E_READFAULT);
            CHECK(FAILED(byStream.As<IPersistStreamInit>()->Load(saved.Stream().Get())));
            const auto storage = StorageOf(BytesOf(*saved.Stream().Get()));
            CHECK(FAILED(byStorage.As<IPersistStorage>()->Load(storage.Get())));
            for (LooseControl* control : {&byBag, &byStream, &byStorage}) CheckThatEveryMemberWorks(*control);
        }
    }
}

namespace {

// Three tabs, and any value for one key.
class OfferingBag final : public ComObject<IPropertyBag> {
public:
    OfferingBag(std::wstring_view key, const Variant& value) : key_(key), value_(value) {}
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        VARIANT three = {};
        three.vt = VT_I2;
        three.iVal = 3;
        if (name == key_) return VariantCopy(value, const_cast<VARIANT*>(&value_.Get()));
        return std::wstring_view(name) == L"TabCount" ? VariantCopy(value, &three) : E_INVALIDARG;
    }
    STDMETHODIMP Write(LPCOLESTR, VARIANT*) noexcept override { return E_NOTIMPL; }

private:
    std::wstring_view key_;
    const Variant& value_;
};

// One value of each type that a variant can have, and the ends of the numbers.
std::vector<Variant> ValuesOfEveryType(IUnknown* object) {
    std::vector<Variant> values;
    const auto add = [&](VARTYPE type, auto set) {
        VARIANT value = {};
        value.vt = type;
        set(value);
        values.emplace_back(value);
        VariantClear(&value);
    };
    const auto nothing = [](VARIANT&) {};
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I1, VT_DATE, VT_CY, VT_DECIMAL, VT_ERROR, VT_DISPATCH,
                               VT_UNKNOWN, VT_BSTR, VT_UI8, VT_INT})
        add(type, nothing);
    for (const std::int16_t number : std::initializer_list<std::int16_t>{INT16_MIN, -1, 0, 1, INT16_MAX})
        add(VT_I2, [&](VARIANT& value) { value.iVal = number; });
    for (const std::int32_t number : {INT32_MIN, -2, 40000, INT32_MAX})
        add(VT_I4, [&](VARIANT& value) { value.lVal = LONG{number}; });
    for (const double number : {std::numeric_limits<double>::quiet_NaN(), -1e300, 1e300, 0.5})
        add(VT_R8, [&](VARIANT& value) { value.dblVal = number; });
    add(VT_UNKNOWN, [&](VARIANT& value) { (value.punkVal = object)->AddRef(); });
    add(VT_ARRAY | VT_UI1, [](VARIANT& value) { value.parray = SafeArrayCreateVector(VT_UI1, 0, 4); });
    for (const wchar_t* text : {L"", L"abc", L"7", L"..\\..\\", L"\\\\?\\C:\\con"})
        add(VT_BSTR, [&](VARIANT& value) { value.bstrVal = SysAllocString(text); });
    add(VT_BSTR, [](VARIANT& value) { value.bstrVal = SysAllocString(std::wstring(70000, L'x').c_str()); });
    return values;
}

} // namespace

TEST_CASE("Whatever a bag holds for a key, the load succeeds or fails and the control lives on") {
    LooseControl other;
    const auto values = ValuesOfEveryType(other.Object());
    const Canvas canvas(300, 200);
    for (const wchar_t* key : AllKeys)
        for (std::size_t i = 0; i < values.size(); ++i) {
            CAPTURE(ToUtf8(key));
            CAPTURE(i);
            LooseControl control;
            control.As<IPersistPropertyBag>()->Load(MakeCom<OfferingBag>(key, values[i]).Get(), nullptr);
            short count = 0, last = 0;
            REQUIRE(control.Tab->get_TabCount(&count) == S_OK);
            BSTR caption = nullptr;
            last = static_cast<short>(count - 1);
            CHECK(control.Tab->GetTabCaption(&last, &caption) == S_OK);
            CHECK((count == 0) == (std::wstring_view(caption) == L"-1"));
            SysFreeString(caption);
            Draw(control.Object(), canvas.DC(), {0, 0, 300, 200});
        }
}

TEST_CASE("A bag that calls back into the control while it is read finds and leaves a whole one") {
    for (const wchar_t* key : AllKeys) {
        CAPTURE(ToUtf8(key));
        LooseControl control;
        const auto other = MakeCom<WatchedBag>(L"", [] { return S_OK; });
        const auto bag = MakeCom<WatchedBag>(key, [&] {
            CheckThatEveryMemberWorks(control);
            return control.As<IPersistPropertyBag>()->Load(other.Get(), nullptr);
        });
        CHECK(control.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr) == S_OK);
        CHECK(Get(control.Dispatch(), L"TabCount").Number() == 3);
        CHECK(Call(control.Dispatch(), L"GetTabCaption", {std::int16_t{2}}).Text().ends_with(L"2"));
        CheckThatEveryMemberWorks(control);
    }
}

TEST_CASE("A bag's error goes to the loader, and the log names the property") {
    LooseControl control;
    const auto log = MakeCom<RecordingLog>();
    CHECK(control.As<IPersistPropertyBag>()->Load(MakeCom<BrokenBag>(STG_E_READFAULT).Get(), log.Get()) ==
          STG_E_READFAULT);
    CHECK(log->Names == std::vector<std::wstring>{L"BarWidth"});
    CHECK(log->Code == STG_E_READFAULT);
    CHECK(control.As<IPersistPropertyBag>()->Load(nullptr, nullptr) == E_POINTER);
}

TEST_CASE("A bag without a key gives the default, and text where a number belongs is converted") {
    LooseControl control;
    CHECK(control.As<IPersistPropertyBag>()->Load(MakeCom<BrokenBag>(E_INVALIDARG).Get(), nullptr) == S_OK);
    CHECK(Get(control.Dispatch(), L"BarWidth").Number() == 20);
    CHECK(Get(control.Dispatch(), L"TabToTab").Number() == 7);
}

TEST_CASE("A bag that cannot be written leaves the control changed") {
    LooseControl control;
    Put(control.Dispatch(), L"FrameDist", std::int16_t{5});
    CHECK(control.As<IPersistPropertyBag>()->Save(MakeCom<BrokenBag>(STG_E_MEDIUMFULL).Get(), TRUE, FALSE) ==
          STG_E_MEDIUMFULL);
    CHECK(control.As<IPersistStreamInit>()->IsDirty() == S_OK);
}

} // namespace vantik
