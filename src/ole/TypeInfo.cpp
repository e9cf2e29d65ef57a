#include "ole/TypeInfo.h"

#include "ole/ErrorInfo.h"
#include "ole/Module.h"

namespace vantik {

ComPtr<ITypeLib> OwnTypeLibrary() {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(AsWide(ModulePath()), REGKIND_NONE, library.Put()));
    return library;
}

ComPtr<ITypeInfo> OwnTypeInfo(REFGUID identifier) {
    ComPtr<ITypeInfo> info;
    Check(OwnTypeLibrary()->GetTypeInfoOfGuid(identifier, info.Put()));
    return info;
}

} // namespace vantik
