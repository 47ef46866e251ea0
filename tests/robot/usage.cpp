#include "robot/usage.h"

#include "robot/desktop.h"
#include "win32/handles.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <memory>
#include <psapi.h>
#include <stdexcept>
#include <winternl.h>

namespace nv::robot
{

namespace
{

constexpr char kGdiObjects[] = "GDI objects";
constexpr char kMemory[] = "memory, KB";
// Fonts that the program keeps open: at rest any number up to this, see win32/gdi_text.
constexpr long long kFonts = 200;
constexpr long long kOwnPictures = 19; // loaded once each, see win32/pictures
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

// Wine does not count GDI objects, but their table stands in each process.
long long GdiObjects(HANDLE process)
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
    return std::count_if(std::begin(table->slots), std::end(table->slots),
                         [](const Slot& slot) { return slot.type != 0; });
}

// By how much a figure may exceed the best of the first ones without being a leak.
long long Allowance(const std::string& name, long long best)
{
    const auto isFor = [&](const char* part) { return name.find(part) != std::string::npos; };
    if (name == kMemory) {
        return best / 4 + kHolesKb;
    }
    return name == kGdiObjects || isFor("HFONT") ? kFonts : isFor("IconTraits") ? kOwnPictures : 0;
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
    while (const LRESULT answer = Tell(main, CountMessage(), usage.size())) {
        char kind[256] = "";
        GlobalGetAtomNameA(static_cast<ATOM>(HIWORD(answer)), kind, sizeof kind);
        usage.emplace_back(kind, LOWORD(answer));
    }
    if (usage.empty()) {
        throw std::runtime_error("the program does not count its handles");
    }
    usage.emplace_back("windows", static_cast<long long>(CountWindows(main)));

    DWORD id = 0;
    GetWindowThreadProcessId(main, &id);
    const KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
    usage.emplace_back(kGdiObjects, GdiObjects(process.Get()));
    // The working set: Wine gives nothing for the private memory.
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(process.Get(), &memory, sizeof memory);
    usage.emplace_back(kMemory, memory.WorkingSetSize / 1024);
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
        const long long allowed = least + Allowance(name, least);
        // Of memory even the first moments may hold a peak.
        if (end > (name == kMemory ? allowed : std::max(most, allowed))) {
            result.grown.push_back(name);
        }
    }
    return result;
}

} // namespace nv::robot
