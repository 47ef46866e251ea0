#include "win32/clipboard.h"

#include "win32/handles.h"

#include <cstring>
#include <new>

namespace nv
{

namespace
{

constexpr int kTries = 20;
constexpr DWORD kBetweenTries = 25; // milliseconds

// The clipboard, open as long as this lives.
class OpenedClipboard
{
public:
    explicit OpenedClipboard(HWND owner)
    {
        for (int tries = kTries; !(open_ = OpenClipboard(owner) != FALSE) && --tries > 0;) {
            Sleep(kBetweenTries);
        }
    }
    ~OpenedClipboard()
    {
        if (open_) {
            CloseClipboard();
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    explicit operator bool() const { return open_; }

private:
    bool open_ = false;
};

// The bytes of a piece of memory, as long as this lives.
class LockedMemory
{
public:
    explicit LockedMemory(HGLOBAL memory)
        : memory_(memory), bytes_(memory != nullptr ? GlobalLock(memory) : nullptr)
    {
    }
    ~LockedMemory()
    {
        if (bytes_ != nullptr) {
            GlobalUnlock(memory_);
        }
    }
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;

    // Null when there is none.
    void* Bytes() const { return bytes_; }

private:
    HGLOBAL memory_;
    void* bytes_;
};

GlobalMemory CopyOf(const void* data, std::size_t size)
{
    GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, size));
    const LockedMemory copy(memory.Get());
    if (copy.Bytes() != nullptr) {
        std::memcpy(copy.Bytes(), data, size);
    }
    return memory;
}

GlobalMemory WideCopyOf(const std::string& text)
{
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    return CopyOf(wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
}

// Once set, the memory is the clipboard's.
bool Put(UINT format, GlobalMemory& memory)
{
    return SetClipboardData(format, memory.Get()) != nullptr && memory.Release() != nullptr;
}

} // namespace

bool PutOnClipboard(HWND owner, const std::string& text)
{
    GlobalMemory bytes = CopyOf(text.c_str(), text.size() + 1);
    // The system would make it of the bytes by the language of the keyboard, which may be another.
    GlobalMemory wide = WideCopyOf(text);
    if (!bytes || !wide) {
        throw std::bad_alloc();
    }
    const OpenedClipboard clipboard(owner);
    return clipboard && EmptyClipboard() && Put(CF_TEXT, bytes) && Put(CF_UNICODETEXT, wide);
}

std::optional<std::string> TextOnClipboard(HWND owner)
{
    const OpenedClipboard clipboard(owner);
    const HANDLE memory = clipboard ? GetClipboardData(CF_TEXT) : nullptr;
    const LockedMemory locked(memory);
    const auto* const text = static_cast<const char*>(locked.Bytes());
    if (text == nullptr) {
        return std::nullopt;
    }
    return std::string(text, strnlen(text, GlobalSize(memory)));
}

} // namespace nv
