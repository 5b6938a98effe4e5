#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace programs::demo {

// Numbers that look random and are the same on every machine for the same seed.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    // From 0 to bound - 1.
    int below(int bound)
    {
        return static_cast<int>((next() >> 32) * static_cast<std::uint64_t>(bound) >> 32);
    }
    // From first to last, both included.
    int between(int first, int last) { return first + below(last - first + 1); }
    bool chance(int percent) { return below(100) < percent; }
    template <typename List> auto pick(const List& list) -> decltype(list[0])
    {
        return list[below(static_cast<int>(std::size(list)))];
    }
    // That many decimal digits.
    QString digits(int count)
    {
        QString text;
        for (int i = 0; i < count; ++i)
            text += QChar(u'0' + below(10));
        return text;
    }

private:
    // SplitMix64: one multiply-and-shift mix of a counter.
    std::uint64_t next()
    {
        std::uint64_t mixed = m_state += 0x9E3779B97F4A7C15u;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t m_state;
};

} // namespace programs::demo
