#include "hostile/FaultInjector.h"

#include <ole2.h>
#include <olectl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <list>
#include <type_traits>

#include "hostile/PatchedImport.h"

// The system's random numbers, which have a name in the documentation only.
extern "C" BOOLEAN NTAPI SystemFunction036(void* buffer, ULONG size);

namespace vantik {

namespace {

FaultyImport& Row(std::size_t row) noexcept { return FaultyImports()[row]; }

template <class Result>
Result As(std::intptr_t failure) noexcept {
    if constexpr (std::is_pointer_v<Result>)
        return reinterpret_cast<Result>(failure);
    else
        return static_cast<Result>(failure);
}

// Which error a failing function leaves with its thread hardly matters, as long as it is one.
template <std::size_t Number, std::intptr_t Failure, class Result, class Function, class... Arguments>
Result Answer(Arguments... arguments) noexcept {
    FaultyImport& import = Row(Number);
    if (import.Fails()) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return As<Result>(Failure);
    }
    return reinterpret_cast<Function>(const_cast<void*>(import.Original))(arguments...);
}

// A function of the same type.
template <std::size_t Number, std::intptr_t Failure, class Function>
struct Stub;

template <std::size_t Number, std::intptr_t Failure, class Result, class... Arguments>
struct Stub<Number, Failure, Result __cdecl(Arguments...)> {
    static Result __cdecl Call(Arguments... arguments) {
        return Answer<Number, Failure, Result, Result(__cdecl*)(Arguments...)>(arguments...);
    }
};

#ifndef _WIN64 // where both calling conventions are one
template <std::size_t Number, std::intptr_t Failure, class Result, class... Arguments>
struct Stub<Number, Failure, Result __stdcall(Arguments...)> {
    static Result __stdcall Call(Arguments... arguments) {
        return Answer<Number, Failure, Result, Result(__stdcall*)(Arguments...)>(arguments...);
    }
};
#endif

template <std::size_t Number, std::intptr_t Failure, class Function>
FaultyImport ImportOf(const char* name) noexcept {
    return {name, reinterpret_cast<const void*>(Stub<Number, Failure, Function>::Call)};
}

constexpr std::size_t FirstRow = __COUNTER__ + 1;

// A function, and what it says when it fails.
#define IMPORT(function, failure) IMPORT_ROW(function, failure, __COUNTER__)
#define IMPORT_ROW(function, failure, counter) \
    ImportOf<counter - FirstRow, failure, decltype(::function)>(#function)

constexpr std::intptr_t NoColour = static_cast<std::int32_t>(CLR_INVALID), OutOfMemory = E_OUTOFMEMORY;

FaultyImport Table[] = {
    // gdi32
    IMPORT(BitBlt, 0),
    IMPORT(CloseMetaFile, 0),
    IMPORT(CreateBitmap, 0),
    IMPORT(CreateCompatibleBitmap, 0),
    IMPORT(CreateCompatibleDC, 0),
    IMPORT(CreateDCW, 0),
    IMPORT(CreateDIBSection, 0),
    IMPORT(CreateDIBitmap, 0),
    IMPORT(CreateFontIndirectW, 0),
    IMPORT(CreateMetaFileW, 0),
    IMPORT(CreateRectRgnIndirect, 0),
    IMPORT(DeleteDC, 0),
    IMPORT(DeleteMetaFile, 0),
    IMPORT(DeleteObject, 0),
    IMPORT(ExcludeClipRect, 0),
    IMPORT(ExtTextOutW, 0),
    IMPORT(GetBkMode, 0),
    IMPORT(GetCurrentObject, 0),
    IMPORT(GetDIBits, 0),
    IMPORT(GetDeviceCaps, 0),
    IMPORT(GetGraphicsMode, 0),
    IMPORT(GetLayout, -1),
    IMPORT(GetMapMode, 0),
    IMPORT(GetObjectType, 0),
    IMPORT(GetObjectW, 0),
    IMPORT(GetPixel, NoColour),
    IMPORT(GetStockObject, 0),
    IMPORT(GetTextExtentPoint32W, 0),
    IMPORT(IntersectClipRect, 0),
    IMPORT(LPtoDP, 0),
    IMPORT(PatBlt, 0),
    IMPORT(RectVisible, 0),
    IMPORT(SaveDC, 0),
    IMPORT(SelectObject, 0),
    IMPORT(SetBkColor, NoColour),
    IMPORT(SetBkMode, 0),
    IMPORT(SetDCBrushColor, NoColour),
    IMPORT(SetDIBits, 0),
    IMPORT(SetDIBitsToDevice, 0),
    IMPORT(SetMapMode, 0),
    IMPORT(SetStretchBltMode, 0),
    IMPORT(SetTextAlign, -1),
    IMPORT(SetTextColor, NoColour),
    IMPORT(SetWindowExtEx, 0),
    IMPORT(SetWindowOrgEx, 0),
    IMPORT(StretchBlt, 0),
    IMPORT(StretchDIBits, 0),

    // user32
    IMPORT(AdjustWindowRect, 0),
    IMPORT(BeginPaint, 0),
    IMPORT(ChildWindowFromPointEx, 0),
    IMPORT(CreateDialogParamW, 0),
    IMPORT(CreateWindowExW, 0),
    IMPORT(DestroyWindow, 0),
    IMPORT(DrawFocusRect, 0),
    IMPORT(DrawTextW, 0),
    IMPORT(EnableWindow, 0),
    IMPORT(EndPaint, 0),
    IMPORT(EnumThreadWindows, 0),
    IMPORT(FillRect, 0),
    IMPORT(GetActiveWindow, 0),
    IMPORT(GetAncestor, 0),
    IMPORT(GetCapture, 0),
    IMPORT(GetClientRect, 0),
    IMPORT(GetCursorPos, 0),
    IMPORT(GetDC, 0),
    IMPORT(GetDlgCtrlID, 0),
    IMPORT(GetDlgItem, 0),
    IMPORT(GetFocus, 0),
    IMPORT(GetMessageW, -1),
    IMPORT(GetMonitorInfoW, 0),
    IMPORT(GetNextDlgTabItem, 0),
    IMPORT(GetParent, 0),
    IMPORT(GetPropW, 0),
    IMPORT(GetSysColorBrush, 0),
    IMPORT(GetWindow, 0),
    IMPORT(GetWindowRect, 0),
    IMPORT(GetWindowTextLengthW, 0),
    IMPORT(GetWindowTextW, 0),
    IMPORT(GetWindowThreadProcessId, 0),
    IMPORT(InvalidateRect, 0),
    IMPORT(IsChild, 0),
    IMPORT(IsWindowEnabled, 0),
    IMPORT(IsWindowUnicode, 0),
    IMPORT(IsWindowVisible, 0),
    IMPORT(KillTimer, 0),
    IMPORT(LoadCursorW, 0),
    IMPORT(LoadStringW, 0),
    IMPORT(LockWindowUpdate, 0),
    IMPORT(MapWindowPoints, 0),
    IMPORT(MessageBoxW, 0),
    IMPORT(PostMessageW, 0),
    IMPORT(RegisterClassExW, 0),
    IMPORT(RegisterClassW, 0),
    IMPORT(ReleaseCapture, 0),
    IMPORT(ReleaseDC, 0),
    IMPORT(ScreenToClient, 0),
    IMPORT(SetCapture, 0),
    IMPORT(SetFocus, 0),
    IMPORT(SetPropW, 0),
    IMPORT(SetTimer, 0),
    IMPORT(SetWindowPos, 0),
    IMPORT(SetWindowRgn, 0),
    IMPORT(SetWindowTextW, 0),
    IMPORT(SystemParametersInfoW, 0),
    IMPORT(UnregisterClassW, 0),
    IMPORT(UpdateWindow, 0),
    IMPORT(ValidateRect, 0),
    IMPORT(TrackMouseEvent, 0),
    IMPORT(WindowFromPoint, 0),

    // kernel32
    IMPORT(CloseHandle, 0),
    IMPORT(CreateDirectoryW, 0),
    IMPORT(CreateFileW, -1),
    IMPORT(DeleteFileW, 0),
    IMPORT(FindFirstFileW, -1),
    IMPORT(FindNextFileW, 0),
    IMPORT(FindResourceW, 0),
    IMPORT(FormatMessageW, 0),
    IMPORT(GetFileAttributesExW, 0),
    IMPORT(GetFileAttributesW, -1),
    IMPORT(GetFileInformationByHandle, 0),
    IMPORT(GetFileSizeEx, 0),
    IMPORT(GetModuleFileNameW, 0),
    IMPORT(GetModuleHandleExW, 0),
    IMPORT(GetProcAddress, 0),
    IMPORT(GetSystemDirectoryW, 0),
    IMPORT(GlobalAlloc, 0),
    IMPORT(GlobalGetAtomNameW, 0),
    IMPORT(GlobalLock, 0),
    IMPORT(LoadLibraryW, 0),
    IMPORT(LoadResource, 0),
    IMPORT(LockResource, 0),
    IMPORT(MoveFileExW, 0),
    IMPORT(MoveFileW, 0),
    IMPORT(MultiByteToWideChar, 0),
    IMPORT(ReadFile, 0),
    IMPORT(SetFilePointerEx, 0),
    IMPORT(SizeofResource, 0),
    IMPORT(WideCharToMultiByte, 0),
    IMPORT(WriteFile, 0),

    // oleaut32, ole32
    IMPORT(CoRegisterClassObject, OutOfMemory),
    IMPORT(CoTaskMemAlloc, 0),
    IMPORT(CreateDataAdviseHolder, OutOfMemory),
    IMPORT(CreateErrorInfo, OutOfMemory),
    IMPORT(CreateOleAdviseHolder, OutOfMemory),
    IMPORT(CreateStreamOnHGlobal, OutOfMemory),
    IMPORT(LoadRegTypeLib, OutOfMemory),
    IMPORT(LoadTypeLibEx, OutOfMemory),
    IMPORT(OleCreateFontIndirect, OutOfMemory),
    IMPORT(OleCreatePictureIndirect, OutOfMemory),
    IMPORT(OleCreatePropertyFrame, OutOfMemory),
    IMPORT(OleLoadPicture, OutOfMemory),
    IMPORT(OleTranslateAccelerator, OutOfMemory),
    IMPORT(OleTranslateColor, OutOfMemory),
    IMPORT(SetErrorInfo, OutOfMemory),
    IMPORT(StringFromGUID2, 0),
    IMPORT(SysAllocString, 0),
    IMPORT(SysAllocStringLen, 0),
    IMPORT(SysReAllocStringLen, 0),
    IMPORT(UnRegisterTypeLib, OutOfMemory),
    IMPORT(VariantChangeTypeEx, OutOfMemory),
    IMPORT(VariantCopy, OutOfMemory),
    IMPORT(VariantCopyInd, OutOfMemory),

    // msvcrt
    IMPORT(_wstat64, -1),

    // advapi32
    IMPORT(RegCreateKeyExW, ERROR_ACCESS_DENIED),
    IMPORT(RegDeleteKeyW, ERROR_ACCESS_DENIED),
    IMPORT(RegDeleteTreeW, ERROR_ACCESS_DENIED),
    IMPORT(RegOpenKeyExW, ERROR_ACCESS_DENIED),
    IMPORT(RegSetValueExW, ERROR_ACCESS_DENIED),
};

const char* const Unfailing[] = {
    // computations and answers
    "CallWindowProcA",
    "CallWindowProcW",
    "CharUpperBuffW",
    "DefWindowProcW",
    "DispatchMessageW",
    "EqualRect",
    "GdiFlush",
    "GetCurrentProcessId",
    "GetCurrentThreadId",
    "GetDesktopWindow",
    "GetDoubleClickTime",
    "GetKeyState",
    "GetLastError",
    "GetMessageTime",
    "GetSysColor",
    "GetSystemMetrics",
    "GetSystemTimeAsFileTime",
    "GetTickCount",
    "IntersectRect",
    "IsDialogMessageW",
    "IsRectEmpty",
    "IsWinEventHookInstalled",
    "IsWindow",
    "MonitorFromRect",
    "MulDiv",
    "NotifyWinEvent",
    "OffsetRect",
    "PtInRect",
    "QueryPerformanceCounter",
    "SendMessageW",
    "SetLastError",
    "SysStringByteLen",
    "SysStringLen",
    "TlsGetValue",
    "TranslateMessage",
    "UnionRect",
    "memchr",
    "memcmp",
    "memcpy",
    "memmove",
    "memset",
    "strcmp",
    "strlen",
    "strncmp",
    "wcslen",
    // what fails for windows only that are not there
    "GetClassLongPtrW",
    "GetClassLongW",
    "GetWindowLongA",
    "GetWindowLongPtrA",
    "GetWindowLongPtrW",
    "GetWindowLongW",
    "SetClassLongPtrW",
    "SetClassLongW",
    "SetWindowLongA",
    "SetWindowLongPtrA",
    "SetWindowLongPtrW",
    "SetWindowLongW",
    "ShowWindow",
    // memory, which is made to fail by tests of its own
    "calloc",
    "malloc",
    "realloc",
    // what gives back, locks, waits and tells
    "AcquireSRWLockExclusive",
    "CoRevokeClassObject",
    "CoTaskMemFree",
    "DeleteCriticalSection",
    "EnterCriticalSection",
    "FindClose",
    "FreeLibrary",
    "GlobalUnlock",
    "InitializeCriticalSection",
    "LeaveCriticalSection",
    "OutputDebugStringW",
    "PostQuitMessage",
    "RegCloseKey",
    "ReleaseSRWLockExclusive",
    "RemovePropW",
    "RestoreDC",
    "Sleep",
    "SysFreeString",
    "VariantClear",
    "VariantInit",
    "free",
    // how the process ends, and what unwinding reads
    "RaiseException",
    "RtlCaptureContext",
    "RtlLookupFunctionEntry",
    "RtlUnwindEx",
    "RtlVirtualUnwind",
    "abort",
    "fwrite",
    "vfprintf",
    "__iob_func",
    "_iob",
    // called while the module is being loaded, before anything could be replaced
    "DisableThreadLibraryCalls",
    "SystemFunction036",
    "VirtualProtect",
    "VirtualQuery",
    "_amsg_exit",
    "_errno",
    "_initterm",
    "_lock",
    "_unlock",
};

} // namespace

std::span<FaultyImport> FaultyImports() noexcept { return Table; }

bool CannotFail(const std::string& import) noexcept {
    return std::find(std::begin(Unfailing), std::end(Unfailing), import) != std::end(Unfailing);
}

FaultInjector::FaultInjector(HMODULE module) {
    const auto imports = vantik::ImportsOf(module);
    for (FaultyImport& import : Table) {
        import.Calls = import.FailsFrom = import.FailsTo = 0;
        if (std::find(imports.begin(), imports.end(), import.Name) == imports.end()) continue;
        import.Original = patches_.emplace_back(module, import.Name, import.Stub).Original();
    }
}

} // namespace vantik
