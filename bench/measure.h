#pragma once

#include <QElapsedTimer>

#include <functional>
#include <vector>

namespace bench {

using Work = std::function<void()>;
// Work that makes itself ready first; gives the milliseconds of what it has timed since.
using Sample = std::function<double()>;

struct Times {
    double ours = 0;  // milliseconds, median
    double other = 0; // milliseconds, median
    double ratio() const { return ours / other; }
};

inline double milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Times two pieces of work in turn, five times each after one run to warm up, so that whatever else
// the machine does falls on both. Short work is repeated within a run.
Times compare(const Work& ours, const Work& other, int repeats = 1);

// The median of each after they were taken in turn, the oftener the quicker they are: what is slow
// with its preparations is taken three times, what is very slow once.
std::vector<double> medians(const std::vector<Sample>& samples);

} // namespace bench
