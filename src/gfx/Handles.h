// One owner per kind of GDI handle; what selects, saves or gets returns the object that undoes it.
#pragma once

#include <utility>

#include "base/RunTimeError.h"
#include "platform/mDeclares.h"

namespace vantik {

template <class Handle, class Releaser>
class Owned {
public:
    Owned() noexcept = default;
    explicit Owned(Handle handle) noexcept : handle_(handle) {}
    Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Owned& operator=(Owned other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Owned() {
        if (handle_) Releaser::Release(handle_);
    }

    Handle Get() const noexcept { return handle_; }
    Handle Detach() noexcept { return std::exchange(handle_, nullptr); }
    explicit operator bool() const noexcept { return handle_ != nullptr; }

private:
    Handle handle_ = nullptr;
};

struct ObjectReleaser {
    static void Release(HGDIOBJ object) noexcept { DeleteObject(object); }
};
struct MemoryDCReleaser {
    static void Release(HDC dc) noexcept { DeleteDC(dc); }
};
struct ScreenDCReleaser {
    static void Release(HDC dc) noexcept { ReleaseDC(nullptr, dc); }
};

using OwnedBitmap = Owned<HBITMAP, ObjectReleaser>;
using OwnedFont = Owned<HFONT, ObjectReleaser>;
using OwnedBrush = Owned<HBRUSH, ObjectReleaser>;
using OwnedRegion = Owned<HRGN, ObjectReleaser>;
using OwnedPalette = Owned<HPALETTE, ObjectReleaser>;
using MemoryDC = Owned<HDC, MemoryDCReleaser>; // a compatible or a created device context
using ScreenDC = Owned<HDC, ScreenDCReleaser>;

inline ScreenDC GetScreenDC() noexcept { return ScreenDC(GetDC(nullptr)); }

// Puts the object back that was selected before. Must end before the selected object and the context do.
class [[nodiscard]] Selection {
public:
    Selection(HDC dc, HGDIOBJ object) noexcept
        : dc_(dc), previous_(object ? SelectObject(dc, object) : nullptr) {}
    Selection(Selection&& other) noexcept
        : dc_(other.dc_), previous_(std::exchange(other.previous_, nullptr)) {}
    Selection& operator=(Selection other) noexcept {
        std::swap(dc_, other.dc_);
        std::swap(previous_, other.previous_);
        return *this;
    }
    ~Selection() {
        if (previous_) SelectObject(dc_, previous_);
    }

private:
    HDC dc_;
    HGDIOBJ previous_;
};

inline Selection Select(HDC dc, HGDIOBJ object) noexcept { return {dc, object}; }

// Restores everything that was set in the context since: selected objects, colours, modes, clipping. Raises where that
// could not be done, before anything is set.
class [[nodiscard]] SavedDC {
public:
    explicit SavedDC(HDC dc) : dc_(dc), state_(SaveDC(dc)) {
        if (!state_) Raise(RunTimeErrorNumber::OutOfMemory);
    }
    SavedDC(const SavedDC&) = delete;
    SavedDC& operator=(const SavedDC&) = delete;
    ~SavedDC() { RestoreDC(dc_, state_); }

private:
    HDC dc_;
    int state_;
};

} // namespace vantik
