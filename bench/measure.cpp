#include "measure.h"

#include <algorithm>

namespace bench {

namespace {

constexpr std::size_t Fewest = 3;
constexpr std::size_t Usual = 5;
constexpr std::size_t Most = 50;
constexpr double Enough = 100;    // milliseconds that the first of the samples has timed in all
constexpr double Patience = 2500; // milliseconds that all samples take with their preparations

double median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

} // namespace

Times compare(const Work& ours, const Work& other, int repeats)
{
    const auto timed = [repeats](const Work& work) {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < repeats; ++i)
            work();
        return milliseconds(timer) / repeats;
    };
    timed(ours);
    timed(other);
    std::vector<double> oursTimes;
    std::vector<double> otherTimes;
    for (std::size_t run = 0; run < Usual; ++run) {
        oursTimes.push_back(timed(ours));
        otherTimes.push_back(timed(other));
    }
    return {median(oursTimes), median(otherTimes)};
}

std::vector<double> medians(const std::vector<Sample>& samples)
{
    std::vector<std::vector<double>> times(samples.size());
    QElapsedTimer all;
    all.start();
    double timed = 0;
    for (std::size_t round = 0; round < Most; ++round) {
        const bool enough = round >= Usual && timed >= Enough;
        const bool tooLong = round >= Fewest && milliseconds(all) >= Patience;
        const bool muchTooLong = round >= 1 && milliseconds(all) >= 2 * Patience;
        if (enough || tooLong || muchTooLong)
            break;
        for (std::size_t i = 0; i < samples.size(); ++i)
            times[i].push_back(samples[i]());
        timed += times.front().back();
    }
    std::vector<double> found(times.size());
    std::ranges::transform(times, found.begin(), median);
    return found;
}

} // namespace bench
