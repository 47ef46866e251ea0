#pragma once

#include <iterator>
#include <random>

namespace nv::robot
{

// The random numbers of one action. Each action has its own, so that it is the same in every run
// with that seed, whatever the actions before it have met.
class Random
{
public:
    Random(unsigned seed, unsigned action)
    {
        std::seed_seq both = {seed, action};
        engine_.seed(both);
    }

    int Below(int end) { return static_cast<int>(engine_() % static_cast<unsigned>(end)); }
    int From(int first, int end) { return first + Below(end - first); }
    bool Chance(int percent) { return Below(100) < percent; }
    template <class Choices> const auto& Of(const Choices& choices)
    {
        return choices[static_cast<std::size_t>(Below(static_cast<int>(std::size(choices))))];
    }

private:
    std::mt19937 engine_;
};

} // namespace nv::robot
