#include "figures.h"

#include <algorithm>
#include <cstdio>

namespace bench {

using namespace Qt::StringLiterals;

bool Figures::wantsAnyOf(const QStringList& names) const
{
    return std::ranges::any_of(names, [this](const QString& name) { return wants(name); });
}

void Figures::measure(const QString& name, double limit, const std::function<Times()>& times)
{
    if (!wants(name))
        return;
    const Times measured = times();
    report(name, measured.ratio(), limit,
           QString::number(measured.ours, 'f', 3) + u" ms against "_s
               + QString::number(measured.other, 'f', 3) + u" ms"_s);
}

void Figures::report(const QString& name, double value, double limit, const QString& meaning)
{
    if (!wants(name))
        return;
    const bool within = value <= limit;
    m_within &= within;
    ++m_count;
    std::printf("%s\t%.3f\t%.2f\n", qUtf8Printable(name), value, limit);
    std::fflush(stdout);
    std::fprintf(stderr, "%s: %s%s\n", qUtf8Printable(name), qUtf8Printable(meaning),
                 within ? "" : ", over its limit");
}

void Figures::inform(const QString& name, double value)
{
    if (!wants(name))
        return;
    ++m_count;
    std::printf("%s\t%.3f\t-\n", qUtf8Printable(name), value);
}

} // namespace bench
