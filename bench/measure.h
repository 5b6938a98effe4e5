#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <functional>

namespace bench {

using Work = std::function<void()>;

struct Times {
    double ours = 0;  // milliseconds, median
    double other = 0; // milliseconds, median
    double ratio() const { return ours / other; }
};

// Times two pieces of work in turn, five times each after one run to warm up, so that whatever else
// the machine does falls on both. Short work is repeated within a run.
inline Times compare(const Work& ours, const Work& other, int repeats = 1)
{
    constexpr std::size_t Runs = 5;
    std::array<double, Runs> oursTimes{};
    std::array<double, Runs> otherTimes{};
    const auto timed = [repeats](const Work& work) {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < repeats; ++i)
            work();
        return static_cast<double>(timer.nsecsElapsed()) / 1e6 / repeats;
    };
    timed(ours);
    timed(other);
    for (std::size_t run = 0; run < Runs; ++run) {
        oursTimes[run] = timed(ours);
        otherTimes[run] = timed(other);
    }
    std::ranges::sort(oursTimes);
    std::ranges::sort(otherTimes);
    return {oursTimes[Runs / 2], otherTimes[Runs / 2]};
}

} // namespace bench
