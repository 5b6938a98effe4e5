#pragma once

#include "measure.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace bench {

// The figures of a run: each is measured when it is asked for, printed as one line (name, ratio,
// limit) and held to its limit.
class Figures {
public:
    // Only figures whose names contain `only` are asked for; all when it is empty.
    explicit Figures(QString only) : m_only(std::move(only)) {}

    // Preparations that serve no figure asked for can be left out.
    bool wants(const QString& name) const { return name.contains(m_only); }
    bool wantsAnyOf(const QStringList& names) const;
    // Measures a figure that is asked for; the limit is that of the times' ratio.
    void measure(const QString& name, double limit, const std::function<Times()>& times);
    // Prints a figure that is no time, if it is asked for; `meaning` says on the standard error
    // what it was made of.
    void report(const QString& name, double value, double limit, const QString& meaning);

    // Prints a figure that has no limit, if it is asked for.
    void inform(const QString& name, double value);

    int count() const { return m_count; } // printed so far
    // False when a figure was over its limit.
    bool within() const { return m_within; }

private:
    QString m_only;
    int m_count = 0;
    bool m_within = true;
};

} // namespace bench
