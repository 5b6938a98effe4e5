#pragma once

#include <QString>
#include <QStringView>

namespace core {

// The key that a list entry carries: update ID, identification ID (mark), ID and the 更新日時 text,
// joined by "-". "0-0-0" means no selection.
struct RecordKey {
    qint64 updateId = 0;
    qint64 mark = 0;
    qint64 id = 0;
    QString stamp; // 更新日時 as "yyyy/mm/dd hh:mm:ss.zzz"

    bool isNone() const { return updateId == 0 && mark == 0 && id == 0; }
    QString toText() const;
    // The key in a text; none for text that is no key.
    static RecordKey fromText(QStringView text);

    bool operator==(const RecordKey& other) const = default;
};

} // namespace core
