#pragma once

#include "core/data/list_source.h"
#include "core/data/record_key.h"

#include <algorithm>

// Rows that are made up when they are asked for: row n (from 1) has the key "n-0-n-stamp" and the
// cells "名前n" and "0n". Says how much was asked for.
class FakeListSource : public core::ListSource {
public:
    explicit FakeListSource(qint64 rows, qint64 pageSize = 0) : m_rows(rows), m_pageSize(pageSize)
    {
    }

    qint64 total() override { return m_rows; }
    qint64 count() override
    {
        if (m_pageSize == 0)
            return m_rows;
        return std::clamp<qint64>(m_rows - before(), 0, m_pageSize);
    }
    qint64 pageCount() override
    {
        return m_pageSize == 0 ? 1 : std::max<qint64>(1, (m_rows + m_pageSize - 1) / m_pageSize);
    }
    qint64 pageSize() const override { return m_pageSize; }
    qint64 page() const override { return m_page; }
    void setPage(qint64 page) override { m_page = std::clamp<qint64>(page, 1, pageCount()); }

    QList<core::ListRow> rows(qint64 offset, int count) override
    {
        ++fetches;
        largestFetch = std::max(largestFetch, count);
        QList<core::ListRow> found;
        const qint64 readable = std::min(m_rows, readableRows);
        for (qint64 row = before() + offset; row < before() + offset + count && row < readable;
             ++row)
            found.append(make(row + 1));
        return found;
    }

    qint64 positionOf(const core::RecordKey& key) override { return key.id <= m_rows ? key.id : 0; }

    static core::ListRow make(qint64 number)
    {
        const QString text = QString::number(number);
        const QString key = text + QStringLiteral("-0-") + text + QStringLiteral("-stamp");
        return {key, {QStringLiteral("名前") + text, QStringLiteral("0") + text}, number % 2 == 0};
    }

    int fetches = 0;
    int largestFetch = 0;
    qint64 readableRows = std::numeric_limits<qint64>::max(); // later ones have been deleted

private:
    qint64 before() const { return (m_page - 1) * m_pageSize; }

    qint64 m_rows;
    qint64 m_pageSize;
    qint64 m_page = 1;
};
