// A control's file, loaded by its path: nothing needs to be registered.
#pragma once

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/ComPtr.h"

namespace vantik {

// One event as the type library declares it.
struct EventDeclaration {
    DISPID Id;
    std::wstring Name;
    std::vector<std::wstring> Arguments;
};

// One named constant of an enumeration.
struct EnumerationMember {
    std::wstring Name;
    std::int32_t Value;
};

class ControlModule {
public:
    // Throws HostError when the file is no control's module. Every object of it must be released before this ends.
    explicit ControlModule(const std::wstring& path);

    // A new control; with an outer object it is aggregated and the outer object keeps what is returned.
    ComPtr<IUnknown> Create(IUnknown* outer = nullptr) const;
    bool CanUnload() const noexcept; // no object of the module is alive

    // What the type library inside the file says of its first control.
    const CLSID& ClassId() const noexcept { return classId_; }
    const IID& EventsId() const noexcept { return eventsId_; }
    const std::vector<EventDeclaration>& Events() const noexcept { return events_; }
    const std::vector<EnumerationMember>& Constants() const noexcept { return constants_; }
    ITypeInfo& Members() const noexcept { return *members_.Get(); }

private:
    void ReadTypeLibrary(const std::wstring& path);
    void ReadClass(ITypeInfo& type, const TYPEATTR& attributes);
    void ReadEvents(ITypeInfo& type);
    void ReadConstants(ITypeInfo& type, const TYPEATTR& attributes);

    struct Unload {
        void operator()(HMODULE module) const noexcept { FreeLibrary(module); }
    };

    std::unique_ptr<std::remove_pointer_t<HMODULE>, Unload> module_; // outlives what was read from it
    CLSID classId_ = CLSID_NULL;
    IID eventsId_ = IID_NULL;
    ComPtr<ITypeInfo> members_;
    std::vector<EventDeclaration> events_;
    std::vector<EnumerationMember> constants_;
};

} // namespace vantik
