// Objects inside a property bag: taken apart when saved, made again when loaded.
#pragma once

#include "host/TextPropertyBag.h"

namespace vantik {

SavedFont TakeApart(IFont& font);
SavedObject TakeApart(IPersistStream& object);
ComPtr<IDispatch> MakeAgain(const SavedFont& saved);
ComPtr<IUnknown> MakeAgain(const SavedObject& saved);

} // namespace vantik
