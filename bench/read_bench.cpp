// read_bench READ_MENU FOLDER: the time that reading and decoding a menu of 100,000 entries takes,
// as a multiple of what "wc -l" takes for the same file, in rounds of one after the other. The file
// is in the page cache.
#include "figures.h"
#include "read_and_decode.h"
#include "sample_menu.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <malloc.h>
#include <spawn.h>
#include <sys/wait.h>

namespace
{

constexpr std::size_t kEntries = 100000;
constexpr int kRounds = 31;

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// How long a program runs, from its start to its end; ends the process when it fails.
double TimeOf(std::initializer_list<const char*> commandLine)
{
    std::vector<std::string> words(commandLine.begin(), commandLine.end());
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", O_WRONLY, 0);
    const auto start = Clock::now();
    pid_t child = 0;
    int status = 1;
    if (posix_spawnp(&child, arguments[0], &quiet, nullptr, arguments.data(), environ) != 0 ||
        waitpid(child, &status, 0) != child || status != 0) {
        std::fprintf(stderr, "%s failed\n", arguments[0]);
        std::exit(1);
    }
    const double time = MillisecondsSince(start);
    posix_spawn_file_actions_destroy(&quiet);
    return time;
}

// Like a program that has been running: memory that was given back is used again, not fetched anew
// from the system.
void KeepMemory()
{
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

} // namespace

int main(int count, char** arguments)
{
    using namespace nv::bench;
    if (count != 3) {
        return 2;
    }
    const std::string menu = std::string(arguments[2]) + "/hundred_thousand.nvm";
    Tell("size of the menu of 100,000", static_cast<double>(WriteMenu(menu, kEntries)) / 1e6, "MB");
    KeepMemory();
    ReadAndDecode(menu.c_str()); // brings the file into the page cache
    std::vector<double> counting;
    std::vector<double> inProcess;
    std::vector<double> process;
    std::vector<double> readOnly;
    for (int round = 0; round < Rounds(kRounds); ++round) {
        counting.push_back(TimeOf({"wc", "-l", menu.c_str()}));
        const auto start = Clock::now();
        ReadAndDecode(menu.c_str());
        inProcess.push_back(MillisecondsSince(start));
        process.push_back(TimeOf({arguments[1], menu.c_str()}));
        readOnly.push_back(TimeOf({arguments[1], "-r", menu.c_str()}));
    }
    Tell("wc -l, process", Median(counting), "ms");
    Tell("read and decode, in process", Median(inProcess), "ms");
    Tell("read and decode, process", Median(process), "ms");
    Tell("only read into fresh memory, process", Median(readOnly), "ms");
    const auto ratio = [&counting](std::vector<double> rounds) {
        for (std::size_t round = 0; round < rounds.size(); ++round) {
            rounds[round] /= counting[round];
        }
        return Median(rounds);
    };
    Report("read and decode 100,000 / wc -l (memory at hand)", ratio(inProcess), 6, "times");
    Report("read and decode 100,000 / wc -l (fresh process)", ratio(process), 6, "times");
    Tell("of which reading into fresh memory alone / wc -l", ratio(readOnly), "times");
}
