#include "robot/usage.h"

#include "robot/desktop.h"
#include "win32/handles.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <map>
#include <memory>
#include <psapi.h>
#include <stdexcept>
#include <winternl.h>

namespace nv::robot
{

namespace
{

constexpr char kGdiObjects[] = "GDI objects of type ";
constexpr char kHeap[] = "heap, bytes";
constexpr char kMemoryKb[] = "memory, KB";
// Types of GDI objects.
constexpr int kFont = 10;
constexpr int kPen = 16; // and brush
constexpr auto npos = std::string::npos;
// Fonts that the program keeps open: at rest any number up to this, see win32/gdi_text.
constexpr long long kFonts = 200;
constexpr long long kOwnPictures = 19; // loaded once each, see win32/pictures
// Kept by Wine: a few pens and fonts, and far more of what comes with its pickers.
constexpr long long kWines = 16;
constexpr long long kPickers = 200;
// What it remembers: the menus that were left, and the heights of fonts.
constexpr long long kRemembered = 256 * 1024;
// Memory that the heap cannot use again, because of holes between its blocks.
constexpr long long kHolesKb = 8192;

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

// By how much a figure may exceed the best of the first ones without being a leak.
long long Allowance(const std::string& name)
{
    const auto isFor = [&](const std::string& part) { return name.find(part) != npos; };
    if (isFor(kGdiObjects)) {
        const bool few = name == kGdiObjects + std::to_string(kPen) ||
                         name == kGdiObjects + std::to_string(kFont);
        return few ? kWines : kPickers;
    }
    return name == kHeap         ? kRemembered
           : name == kMemoryKb   ? kHolesKb
           : isFor("HFONT")      ? kFonts
           : isFor("IconTraits") ? kOwnPictures
                                 : 0;
}

long long FigureOf(const Usage& usage, const std::string& name)
{
    const auto found = std::find_if(usage.begin(), usage.end(),
                                    [&](const auto& each) { return each.first == name; });
    return found != usage.end() ? found->second : 0;
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
    while (const LRESULT answer = Tell(main, CountMessage(), usage.size())) {
        char kind[256] = "";
        GlobalGetAtomNameA(static_cast<ATOM>(HIWORD(answer)), kind, sizeof kind);
        usage.emplace_back(kind, LOWORD(answer));
        ownFonts +=
            std::string_view(kind).find("HFONT") != std::string_view::npos ? LOWORD(answer) : 0;
    }
    if (usage.empty()) {
        throw std::runtime_error("the program does not count its handles");
    }
    usage.emplace_back("windows", static_cast<long long>(CountWindows(main)));

    DWORD id = 0;
    GetWindowThreadProcessId(main, &id);
    const KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
    for (const auto& [type, count] : GdiObjects(process.Get())) {
        // Of fonts those of nobody: the program's own are counted above.
        usage.emplace_back(kGdiObjects + std::to_string(type),
                           type == kFont ? count - ownFonts : count);
    }
    usage.emplace_back(kHeap, Tell(main, CountMessage(), kHeapBytes));
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(process.Get(), &memory, sizeof memory);
    usage.emplace_back(kMemoryKb, memory.PagefileUsage / 1024);
    return usage;
}

Comparison Compare(const std::vector<Usage>& moments)
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
            const long long value = FigureOf(moments[at], name);
            least = std::min(least, value);
            most = std::max(most, value);
            end = std::min(end, FigureOf(moments[moments.size() - 1 - at], name));
        }
        result.table += "  " + name + ": " + std::to_string(least) + " to " + std::to_string(most) +
                        ", at the end " + std::to_string(end) + "\n";
        const long long allowed = least + Allowance(name);
        if (end > std::max(most, allowed)) {
            result.grown.push_back(name);
        }
    }
    return result;
}

} // namespace nv::robot
