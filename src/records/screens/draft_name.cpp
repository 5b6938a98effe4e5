#include "records/screens/draft_name.h"

#include "records/data/row_changes.h"
#include "records/screens/edit_form.h"

using namespace Qt::StringLiterals;

namespace records {
namespace {

// Without the moment of the last change: the record stays the same.
QString nameOf(const core::RecordKey& key)
{
    return QString::number(key.updateId) + u'-' + QString::number(key.mark) + u'-'
        + QString::number(key.id) + u' ';
}

bool isGone(Database& data, const KeyedText& query, const QString& key)
{
    const QStringList numbers = key.split(u'-');
    if (numbers.size() != 3)
        return false;
    const core::RecordKey named{
        numbers[0].toLongLong(), numbers[1].toLongLong(), numbers[2].toLongLong(), {}};
    return !rowStands(data, query.with(named)).value_or(true);
}

} // namespace

// A new record is known by what it belongs to and by what it was copied from.
QString draftName(const QString& form, const Opening& opening)
{
    QString name = form + (opening.mode == Opening::Mode::Add ? u" +"_s : u" "_s);
    for (const core::RecordKey& parent : opening.parents)
        name += nameOf(parent);
    return opening.record ? name + nameOf(opening.record->key) : name;
}

QString orphanedDraftName(const QString& form)
{
    return form + u" *"_s;
}

bool isOrphaned(Database& data, const RecordTable& table, const QString& form, const QString& name)
{
    if (!name.startsWith(form + u' '))
        return false;
    if (name == orphanedDraftName(form))
        return true;
    QStringView records = QStringView(name).sliced(form.size() + 1);
    const bool isNew = records.startsWith(u'+');
    const QStringList keys =
        records.sliced(isNew ? 1 : 0).toString().split(u' ', Qt::SkipEmptyParts);
    const qsizetype parents = isNew ? table.parents.size() : 0;
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const KeyedText& query = i < parents ? table.parents.at(i).query : table.rowQuery;
        if (isGone(data, query, keys.at(i)))
            return true;
    }
    return false;
}

} // namespace records
