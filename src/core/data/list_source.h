#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace core {

struct RecordKey;

// One row of a list as a screen shows it.
struct ListRow {
    QString key;       // the record's key
    QStringList cells; // in column order
    bool checked = false;
    int emphasis = 0; // 0 = none; otherwise what the list defines
};

// The rows of a list, read in stretches; no list is ever read whole. A list may be cut in pages,
// one of which is shown at a time; a list that is not is one page.
class ListSource {
public:
    virtual ~ListSource() = default;
    // Rows of the page shown.
    virtual qint64 count() = 0;
    // Up to `count` rows of the page shown from `offset` (from 0) on; fewer at the end or when
    // reading fails.
    virtual QList<ListRow> rows(qint64 offset, int count) = 0;

    // Rows on all pages.
    virtual qint64 total() { return count(); }
    // At least 1.
    virtual qint64 pageCount() { return 1; }
    // Rows of a full page; 0: all rows are one page.
    virtual qint64 pageSize() const { return 0; }
    // The page shown, from 1.
    virtual qint64 page() const { return 1; }
    // A page that is not there becomes the nearest one.
    virtual void setPage(qint64) {}
    // The place of a record among the rows of all pages, from 1; 0 when it is not among them, -1
    // when that cannot be told.
    virtual qint64 positionOf(const RecordKey&) { return -1; }
    // The place of the first row whose cell in the column that orders the list begins with a text,
    // kana kind, width and letter case aside; 0 when there is none, or nothing to look in.
    virtual qint64 positionOfText(const QString&) { return 0; }
};

} // namespace core
