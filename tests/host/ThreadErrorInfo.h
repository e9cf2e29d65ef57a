// What the last failed call of this thread left for its caller to ask for.
#pragma once

#include <string>

#include "host/Variant.h"
#include "platform/ComPtr.h"

namespace vantik {

struct ThreadErrorInfo {
    std::wstring Source, Description;
    GUID Interface = GUID_NULL;

    // Empty when nothing was left. Taking it leaves nothing.
    static ThreadErrorInfo Take() {
        ThreadErrorInfo info;
        ComPtr<IErrorInfo> error;
        if (GetErrorInfo(0, error.Put()) != S_OK) return info;
        Bstr source(L""), description(L"");
        error->GetSource(source.Put());
        error->GetDescription(description.Put());
        error->GetGUID(&info.Interface);
        info.Source = source.Text();
        info.Description = description.Text();
        return info;
    }
};

} // namespace vantik
