#include "ole/com/TypeInfo.h"

#include "ole/com/ErrorInfo.h"
#include "ole/com/Module.h"

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
