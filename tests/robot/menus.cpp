#include "robot/menus.h"

#include "e2e/stage.h"
#include "robot/random.h"

namespace nv::robot
{

using namespace e2e;

namespace
{

constexpr int kHuge = 100000;
constexpr int kFonts = 15000;

const char* const kNames[] = {kHomeName,  "Small.nvm",   "Empty.nvm", "Huge.nvm",
                              "Slow.nvm", "Hostile.nvm", "Gone.nvm"};

std::vector<Entry> Links()
{
    std::vector<Entry> entries;
    for (const char* name : kNames) {
        entries.push_back({kLink, std::string("To ") + name, name});
        entries.push_back({kLink, "Recorder", "recorder.exe with arguments"});
    }
    return entries;
}

std::string Long(int count, bool fonts)
{
    std::string menu = MenuOf(Links());
    Entry entry = {kLink, "One of many", "many.exe"};
    for (int number = 0; number < count; ++number) {
        if (fonts) {
            entry.font = "Tahoma" + std::to_string(number);
        }
        if (number % 16 == 0) {
            entry.type = static_cast<EntryType>(1 + number / 16 % 5);
        }
        menu += LineOf(entry) + "\r\n";
    }
    return menu;
}

std::string RandomBytes(Random& random)
{
    std::string bytes;
    for (int left = random.Below(40); left > 0; --left) {
        bytes += static_cast<char>(random.Below(256));
    }
    return bytes;
}

// Captions, fonts and numbers may hold anything; commands name nothing that could be started.
std::string HostileLine(Random& random)
{
    // No size of some ten thousand points: Wine's font picker draws such letters for half a minute.
    static const char* const kNumbers[] = {"-1", "0", "2147483648", "1e300", "-1e-300", "99999",
                                           "&H", "",  " ",          "0.5",   "300"};
    static const char* const kEnds[] = {"\r\n", "\r\n", "\r\n", "\n", "\r", "\r\r\n", ""};
    const std::string commands[] = {std::string(static_cast<std::size_t>(random.Below(3000)), 'q'),
                                    random.Of(kNames), "q\"q.exe \1\"\"\"\"", "recorder.exe"};
    Entry entry;
    entry.type = static_cast<EntryType>(random.Below(10));
    entry.caption = random.Chance(5) ? std::string(100000, 'w') : RandomBytes(random);
    entry.command = random.Of(commands);
    entry.font = random.Chance(50) ? "Tahoma" : RandomBytes(random);
    entry.size = random.Of(kNumbers);
    entry.charset = random.Below(300) - 10;
    entry.color = random.Below(1 << 30) * (random.Chance(30) ? -1 : 1);
    std::string line = LineOf(entry);
    if (random.Chance(20)) { // a part of it is missing
        const auto from = static_cast<std::size_t>(random.Below(static_cast<int>(line.size())));
        line.erase(from, static_cast<std::size_t>(random.Below(60)));
    }
    return line + random.Of(kEnds);
}

} // namespace

std::vector<std::pair<std::string, std::string>> RobotMenus(unsigned seed)
{
    std::vector<Entry> small = Links();
    small.insert(small.begin(), {{kTitle, "A title", ""},
                                 {kLine, "", ""},
                                 {kLabel, "A label of two\1lines", ""},
                                 {kSpace, "", ""}});
    std::string hostile = MenuOf(Links());
    Random random(seed, 0);
    for (int line = 0; line < 400; ++line) {
        hostile += HostileLine(random);
    }
    return {{kHomeName, MenuOf(Links())},
            {"Small.nvm", MenuOf(small)},
            {"Empty.nvm", ""},
            {"Huge.nvm", Long(kHuge, false)},
            {"Slow.nvm", Long(kFonts, true)},
            {"Hostile.nvm", hostile}};
}

} // namespace nv::robot
