// Move-only owners of the platform's handles.
#pragma once

#include "win32/handle_counts.h"

#include <windows.h>

#include <utility>

namespace nv
{

// Owns one handle; Traits says what "none" is and how one is released.
template <class Traits> class UniqueHandle
{
public:
    using Type = typename Traits::Type;

    UniqueHandle() = default;
    explicit UniqueHandle(Type handle) { Reset(handle); }
    UniqueHandle(UniqueHandle&& other) noexcept { Reset(other.Release()); }
    UniqueHandle& operator=(UniqueHandle&& other) noexcept
    {
        if (this != &other) {
            Reset(other.Release());
        }
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { Reset(); }

    Type Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Traits::None(); }
    // Hands the handle over to the caller.
    Type Release()
    {
        const Type handle = std::exchange(handle_, Traits::None());
        if (handle != Traits::None()) {
            CountHandles<Traits>(-1);
        }
        return handle;
    }
    // Releases what is owned and takes over handle.
    void Reset(Type handle = Traits::None())
    {
        if (handle_ != Traits::None()) {
            Traits::Release(handle_);
            CountHandles<Traits>(-1);
        }
        handle_ = handle;
        if (handle != Traits::None()) {
            CountHandles<Traits>(1);
        }
    }

private:
    Type handle_ = Traits::None();
};

struct FileTraits {
    using Type = HANDLE;
    static Type None() { return INVALID_HANDLE_VALUE; }
    static void Release(Type handle) { CloseHandle(handle); }
};
using FileHandle = UniqueHandle<FileTraits>;

struct FindTraits {
    using Type = HANDLE;
    static Type None() { return INVALID_HANDLE_VALUE; }
    static void Release(Type handle) { FindClose(handle); }
};
using FindHandle = UniqueHandle<FindTraits>;

struct KernelTraits {
    using Type = HANDLE;
    static Type None() { return nullptr; }
    static void Release(Type handle) { CloseHandle(handle); }
};
using KernelHandle = UniqueHandle<KernelTraits>;

// Memory from GlobalAlloc.
struct GlobalTraits {
    using Type = HGLOBAL;
    static Type None() { return nullptr; }
    static void Release(Type handle) { GlobalFree(handle); }
};
using GlobalMemory = UniqueHandle<GlobalTraits>;

struct RegistryTraits {
    using Type = HKEY;
    static Type None() { return nullptr; }
    static void Release(Type handle) { RegCloseKey(handle); }
};
using RegistryKey = UniqueHandle<RegistryTraits>;

// Fonts, brushes, pens, bitmaps and regions. Must not be selected into a device context when it is
// released.
template <class Handle> struct GdiTraits {
    using Type = Handle;
    static Type None() { return nullptr; }
    static void Release(Type handle) { DeleteObject(handle); }
};
using FontHandle = UniqueHandle<GdiTraits<HFONT>>;
using BitmapHandle = UniqueHandle<GdiTraits<HBITMAP>>;

struct IconTraits {
    using Type = HICON;
    static Type None() { return nullptr; }
    static void Release(Type handle) { DestroyIcon(handle); }
};
using IconHandle = UniqueHandle<IconTraits>;

struct MemoryDcTraits {
    using Type = HDC;
    static Type None() { return nullptr; }
    static void Release(Type handle) { DeleteDC(handle); }
};
using MemoryDc = UniqueHandle<MemoryDcTraits>;

// The device context of a window's WM_PAINT, for the life of the object.
class PaintDc
{
public:
    explicit PaintDc(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
    ~PaintDc() { EndPaint(window_, &paint_); }
    PaintDc(const PaintDc&) = delete;
    PaintDc& operator=(const PaintDc&) = delete;

    // Null when there is nothing to paint on.
    HDC Get() const { return dc_; }
    const RECT& Part() const { return paint_.rcPaint; }

private:
    HWND window_;
    PAINTSTRUCT paint_ = {};
    HDC dc_;
};

} // namespace nv
