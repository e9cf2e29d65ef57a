#include "host/ControlModule.h"

#include "host/TypeAttributes.h"

namespace vantik {

namespace {

template <class Function>
Function Export(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(GetProcAddress(module, name));
}

} // namespace

ControlModule::ControlModule(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
    if (!module_) throw HostError("cannot load " + ToUtf8(path));
    ReadTypeLibrary(path);
    if (classId_ == CLSID_NULL) throw HostError(ToUtf8(path) + " describes no control");
}

ComPtr<IUnknown> ControlModule::Create(IUnknown* outer) const {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto getClassObject = Export<GetClassObject>(module_.get(), "DllGetClassObject");
    if (!getClassObject) throw HostError("the module has no class objects");
    ComPtr<IClassFactory> factory;
    Check(getClassObject(classId_, __uuidof(IClassFactory), factory.PutVoid()), "DllGetClassObject");
    ComPtr<IUnknown> control;
    Check(factory->CreateInstance(outer, __uuidof(IUnknown), control.PutVoid()), "CreateInstance");
    return control;
}

bool ControlModule::CanUnload() const noexcept {
    using CanUnloadNow = HRESULT(STDAPICALLTYPE*)();
    const auto canUnloadNow = Export<CanUnloadNow>(module_.get(), "DllCanUnloadNow");
    return canUnloadNow && canUnloadNow() == S_OK;
}

void ControlModule::ReadTypeLibrary(const std::wstring& path) {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.Put()), "Loading the type library");
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        Check(library->GetTypeInfo(i, type.Put()), "Reading the type library");
        const LentAttributes attributes(*type.Get());
        if (attributes->typekind == TKIND_ENUM) ReadConstants(*type.Get(), *attributes);
        if (attributes->typekind == TKIND_COCLASS && classId_ == CLSID_NULL)
            ReadClass(*type.Get(), *attributes);
    }
}

// The default interface and the default source of a class.
void ControlModule::ReadClass(ITypeInfo& type, const TYPEATTR& attributes) {
    classId_ = attributes.guid;
    for (UINT i = 0; i < attributes.cImplTypes; ++i) {
        INT flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> implemented;
        Check(type.GetImplTypeFlags(i, &flags), "Reading the class");
        Check(type.GetRefTypeOfImplType(i, &reference), "Reading the class");
        Check(type.GetRefTypeInfo(reference, implemented.Put()), "Reading the class");
        if ((flags & IMPLTYPEFLAG_FDEFAULT) == 0) continue;
        if ((flags & IMPLTYPEFLAG_FSOURCE) != 0) {
            ReadEvents(*implemented.Get());
        } else {
            members_ = implemented;
        }
    }
}

void ControlModule::ReadEvents(ITypeInfo& type) {
    const LentAttributes attributes(type);
    eventsId_ = attributes->guid;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        const LentFunction function(type, i);
        std::vector<std::wstring> names = NamesOf(type, function->memid);
        EventDeclaration event = {function->memid, names.front(), {names.begin() + 1, names.end()}};
        events_.push_back(std::move(event));
    }
}

void ControlModule::ReadConstants(ITypeInfo& type, const TYPEATTR& attributes) {
    for (UINT i = 0; i < attributes.cVars; ++i) {
        const LentVariable variable(type, i);
        if (variable->varkind != VAR_CONST) continue;
        constants_.push_back(
            {NamesOf(type, variable->memid).front(), Variant(*variable->lpvarValue).Number()});
    }
}

} // namespace vantik
