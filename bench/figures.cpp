#include "figures.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace nv::bench
{

namespace
{

double Ranked(std::vector<double>& rounds, std::size_t rank)
{
    const auto place = rounds.begin() + static_cast<std::ptrdiff_t>(rank);
    std::nth_element(rounds.begin(), place, rounds.end());
    return *place;
}

} // namespace

double Median(std::vector<double> rounds)
{
    return Ranked(rounds, rounds.size() / 2);
}

double LowQuarter(std::vector<double> rounds)
{
    return Ranked(rounds, rounds.size() / 4);
}

int Rounds(int usual)
{
    const char* wanted = std::getenv("NAVRIX_BENCH_ROUNDS");
    return wanted != nullptr ? std::max(std::atoi(wanted), 1) : usual;
}

void Tell(const std::string& figure, double measured, const char* unit)
{
    std::printf("  %-58s %10.2f %s\n", figure.c_str(), measured, unit);
    std::fflush(stdout);
}

void Report(const std::string& figure, double measured, double aim, const char* unit)
{
    std::printf("=\t%s\t%.2f %s\t%g %s\t%s\n", figure.c_str(), measured, unit, aim, unit,
                measured <= aim ? "yes" : "NO");
    std::fflush(stdout);
}

} // namespace nv::bench
