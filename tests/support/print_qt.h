#pragma once

// Included into every test source by the compiler's command line, so that all of them print Qt
// values alike in failure messages.

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(QStringView text, std::ostream* out)
{
    PrintTo(text.toString(), out);
}

inline void PrintTo(const QStringList& texts, std::ostream* out)
{
    *out << '{';
    for (const QString& text : texts) {
        PrintTo(text, out);
        *out << ' ';
    }
    *out << '}';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out)
{
    *out << '"' << bytes.toStdString() << '"';
}

inline void PrintTo(const QDate& date, std::ostream* out)
{
    *out << date.toString(QStringLiteral("yyyy/MM/dd")).toStdString();
}

inline void PrintTo(const QDateTime& moment, std::ostream* out)
{
    *out << moment.toString(QStringLiteral("yyyy/MM/dd hh:mm:ss.zzz")).toStdString();
}
