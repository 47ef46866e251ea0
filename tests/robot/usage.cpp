#include "robot/usage.h"

#include "robot/desktop.h"
#include "win32/handles.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <winternl.h>

namespace nv::robot
{

using namespace e2e;

namespace
{

constexpr char kGdiObjects[] = "GDI objects of type ";
constexpr char kOwnMemory[] = "bytes of its own objects";
constexpr char kSystemMemory[] = "bytes of the system's objects";
constexpr int kFont = 10; // a type of GDI objects

// By how much a figure may exceed the best of the first ones without being a leak: the first of
// these whose name is a part of its name, or nothing.
constexpr std::pair<const char*, long long> kAllowances[] = {
    // Fonts that the program keeps open: at rest any number up to this, see win32/gdi_text.
    {"HFONT", 200},
    // Its own pictures, loaded once each, see win32/pictures.
    {"IconTraits", 19},
    // Kept by Wine: a few fonts, pens and brushes, and far more of what comes with its pickers.
    {"GDI objects of type 10", 16},
    {"GDI objects of type 16", 16},
    {kGdiObjects, 200},
    // What it remembers: the menus that were left, and the heights of up to 4,096 fonts, some 100
    // bytes each.
    {kOwnMemory, 512 * 1024},
    // Kept by Wine: some hundred bytes for each picker, and 5 MB in which its edit control broke a
    // caption of 15,000 letters into lines: about once in ten minutes, room for three.
    {kSystemMemory, 16 * 1024 * 1024},
};

UINT CountMessage()
{
    return RegisterWindowMessageA("NavrixHandleCount");
}

template <class Value> Value Read(HANDLE process, std::uintptr_t from)
{
    Value value = {};
    SIZE_T read = 0;
    if (!ReadProcessMemory(process, reinterpret_cast<const void*>(from), &value, sizeof value,
                           &read)) {
        throw std::runtime_error("the program's memory cannot be read");
    }
    return value;
}

// By type: Wine does not count them, but their table stands in each process.
std::map<int, long long> GdiObjects(HANDLE process)
{
    struct Slot {
        std::uint64_t object;
        std::uint32_t owner;
        std::uint16_t unique;
        std::uint8_t type; // 0: free
        std::uint8_t flags;
        std::uint64_t user;
    };
    static_assert(sizeof(Slot) == 24);
    struct Table {
        Slot slots[0x4000];
    };
    constexpr std::uintptr_t kTableInPeb = 0xF8;
    PROCESS_BASIC_INFORMATION basic = {};
    NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr);
    const auto peb = reinterpret_cast<std::uintptr_t>(basic.PebBaseAddress);
    const auto table = std::make_unique<Table>(
        Read<Table>(process, Read<std::uintptr_t>(process, peb + kTableInPeb)));
    std::map<int, long long> counts;
    for (const Slot& slot : table->slots) {
        if (slot.type != 0) {
            ++counts[slot.type];
        }
    }
    return counts;
}

long long AllowanceOf(const std::string& name)
{
    for (const auto& [part, allowance] : kAllowances) {
        if (name.find(part) != std::string::npos) {
            return allowance;
        }
    }
    return 0;
}

} // namespace

bool InputWaits(HWND main)
{
    return Tell(main, CountMessage(), kInputWaits) != 0;
}

Usage UsageOf(HWND main)
{
    Usage usage;
    long long ownFonts = 0;
    WPARAM number = 0;
    while (const LRESULT answer = Tell(main, CountMessage(), number++)) {
        char kind[256] = "";
        GlobalGetAtomNameA(static_cast<ATOM>(HIWORD(answer)), kind, sizeof kind);
        usage[kind] = LOWORD(answer);
        ownFonts += std::strstr(kind, "HFONT") != nullptr ? LOWORD(answer) : 0;
    }
    if (usage.empty()) {
        throw std::runtime_error("the program does not count its handles");
    }
    for (const HWND window : TopWindowsBeside(main)) {
        usage["windows"] += 1 + std::ssize(ChildrenOf(window));
    }

    DWORD id = 0;
    GetWindowThreadProcessId(main, &id);
    const KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
    for (const auto& [type, count] : GdiObjects(process.Get())) {
        // Of fonts those of nobody: the program's own are counted above.
        usage[kGdiObjects + std::to_string(type)] = type == kFont ? count - ownFonts : count;
    }
    usage[kOwnMemory] = Tell(main, CountMessage(), kOwnBytes);
    usage[kSystemMemory] = Tell(main, CountMessage(), kAllBytes) - usage[kOwnMemory];
    return usage;
}

Comparison Compare(std::vector<Usage> moments)
{
    const std::size_t third = std::max<std::size_t>(moments.size() / 3, 1);
    // Kinds are counted from when there is one: the last moment knows them all.
    Comparison result = {"At rest, in the first and in the last " + std::to_string(third) + " of " +
                             std::to_string(moments.size()) + " rounds:\n",
                         {}};
    for (const auto& [name, ignored] : moments.back()) {
        long long least = LLONG_MAX;
        long long most = 0;
        long long end = LLONG_MAX;
        for (std::size_t at = 0; at < third; ++at) {
            const long long value = moments[at][name]; // 0 where there was none yet
            least = std::min(least, value);
            most = std::max(most, value);
            end = std::min(end, moments[moments.size() - 1 - at][name]);
        }
        result.table += "  " + name + ": " + std::to_string(least) + " to " + std::to_string(most) +
                        ", at the end " + std::to_string(end) + "\n";
        if (end > std::max(most, least + AllowanceOf(name))) {
            result.grown.push_back(name);
        }
    }
    return result;
}

} // namespace nv::robot
