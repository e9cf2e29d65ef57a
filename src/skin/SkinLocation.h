// Whether a skin that a host names is there, and what to say when it is not. Only existence counts, not the content.
#pragma once

#include <string>

#include "model/ControlState.h"
#include "platform/UserControl.h"

namespace vantik {

// This file does not exist; make sure that it exists, or set the SkinPath property first.
inline constexpr const char16_t* NoSuchSkinFile =
    u"\u4E0D\u5B58\u5728\u6B64\u6587\u4EF6\uFF0C\u8BF7\u786E\u5B9A\u6587\u4EF6\u662F\u5426\u5B58\u5728"
    u"\uFF0C\u6216\u8BF7\u5148\u8BBESkinPath\u5C5E\u6027";
// The skin folder does not exist; create the folder first.
inline constexpr const char16_t* NoSuchSkinFolder =
    u"\u76AE\u80A4\u76EE\u5F55\u4E0D\u5B58\u5728\uFF0C\u8BF7\u5148\u521B\u5EFA\u76EE\u5F55!";

// A definition of this name in the current SkinPath.
bool SkinFileExists(UserControl& host, const ControlState& state, const std::u16string& name);

// A folder of this name in the host folder.
bool SkinFolderExists(UserControl& host, const std::u16string& folder);

} // namespace vantik
