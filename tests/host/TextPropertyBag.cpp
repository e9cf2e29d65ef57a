#include "host/TextPropertyBag.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/HostError.h"
#include "host/PropertyText.h"
#include "host/SavedObjects.h"

namespace vantik {

namespace {

bool SameName(std::wstring_view a, std::wstring_view b) noexcept {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) == CSTR_EQUAL;
}

bool HoldsObject(const VARIANT& value) noexcept { return value.vt == VT_UNKNOWN || value.vt == VT_DISPATCH; }

// The caller says by the type of its variable what it wants; VT_EMPTY takes anything.
void Deliver(const Variant& stored, VARIANT& wanted) {
    Variant value = wanted.vt == VT_EMPTY ? stored : stored.As(wanted.vt);
    VariantClear(&wanted);
    value.MoveTo(&wanted);
}

template <class Saved>
void DeliverObject(const Saved& saved, VARIANT& wanted) {
    const ComPtr<IUnknown> object = MakeAgain(saved).template As<IUnknown>();
    const bool asDispatch = wanted.vt == VT_DISPATCH;
    Variant value = asDispatch ? Variant(object.As<IDispatch>().Get()) : Variant(object.Get());
    VariantClear(&wanted);
    value.MoveTo(&wanted);
}

void Deliver(const SavedFont& saved, VARIANT& wanted) { DeliverObject(saved, wanted); }
void Deliver(const SavedObject& saved, VARIANT& wanted) { DeliverObject(saved, wanted); }

// A bag tells the form's load log about a value that it could not deliver.
void Report(IErrorLog* log, LPCOLESTR name, HRESULT code) noexcept {
    if (!log) return;
    EXCEPINFO exception = {};
    exception.scode = code;
    log->AddError(name, &exception);
}

} // namespace

void TextPropertyBag::Parse(std::string_view text) {
    TextPropertyBag parsed;
    PropertyTextReader(FromUtf8(text)).Read(parsed);
    entries_ = std::move(parsed.entries_);
}

std::string TextPropertyBag::Text() const { return PropertyTextWriter().Write(*this); }

void TextPropertyBag::Load(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file) throw HostError("cannot read " + ToUtf8(path));
    const std::string text(std::istreambuf_iterator<char>(file), {});
    try {
        Parse(text);
    } catch (const HostError& error) {
        throw HostError(ToUtf8(path) + ", " + error.what(), error.Code());
    }
}

void TextPropertyBag::Save(const std::wstring& path) const {
    std::ofstream file(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
    file << Text();
    file.close();
    if (!file) throw HostError("cannot write " + ToUtf8(path));
}

HRESULT TextPropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept {
    if (!name || !value) return E_POINTER;
    const Entry* entry = Find(name);
    if (!entry) return E_INVALIDARG; // the caller keeps its default
    const HRESULT result = Guarded([&] {
        std::visit([&](const auto& stored) { Deliver(stored, *value); }, entry->Value);
        return S_OK;
    });
    if (FAILED(result)) Report(log, name, result);
    return result;
}

HRESULT TextPropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    if (!name || !value) return E_POINTER;
    return Guarded([&] {
        if (!HoldsObject(*value)) {
            Store(name, Variant(*value));
        } else if (const auto font = QueryFor<IFont>(value->punkVal)) {
            Store(name, TakeApart(*font.Get()));
        } else if (const auto object = QueryFor<IPersistStream>(value->punkVal)) {
            Store(name, TakeApart(*object.Get()));
        } else if (value->punkVal) {
            return E_NOINTERFACE;
        }
        return S_OK;
    });
}

const TextPropertyBag::Entry* TextPropertyBag::Find(std::wstring_view name) const noexcept {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return SameName(entry.Name, name); });
    return found == entries_.end() ? nullptr : &*found;
}

void TextPropertyBag::Store(std::wstring_view name, Value value) {
    if (const Entry* entry = Find(name)) {
        entries_[static_cast<std::size_t>(entry - entries_.data())].Value = std::move(value);
    } else {
        entries_.push_back({std::wstring(name), std::move(value)});
    }
}

} // namespace vantik
