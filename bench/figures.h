// What the benchmarks have in common: the middle of several rounds, and one form of result.
#pragma once

#include <string>
#include <vector>

namespace nv::bench
{

// The middle one of rounds, which must not be empty.
double Median(std::vector<double> rounds);
// The one that a quarter of them are faster than: what other programs do meanwhile only adds time,
// so this says more of work done in one process.
double LowQuarter(std::vector<double> rounds);

// How many rounds to measure: so many, or what the environment variable NAVRIX_BENCH_ROUNDS says.
int Rounds(int usual);

// A figure that has no aim, for the reader.
void Tell(const std::string& figure, double measured, const char* unit);
// A figure and the most that it may be. The line begins with "=": bench/run.sh makes its table of
// such lines.
void Report(const std::string& figure, double measured, double aim, const char* unit);

} // namespace nv::bench
