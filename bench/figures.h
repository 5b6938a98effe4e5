#pragma once

#include "measure.h"

#include <cstdio>

namespace bench {

// Prints one figure; false when it is over its limit.
inline bool report(const char* name, const Times& times, double limit)
{
    const bool within = times.ratio() <= limit;
    std::printf("%s\t%.3f\t%.1f\n", name, times.ratio(), limit);
    std::fprintf(stderr, "%s: %.3f ms against %.3f ms%s\n", name, times.ours, times.other,
                 within ? "" : ", over its limit");
    return within;
}

} // namespace bench
