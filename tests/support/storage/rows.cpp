#include "support/storage/rows.h"

#include "storage/recordset.h"

QStringList rowsOf(storage::Connection& file, const QString& statement, const QString& null)
{
    QStringList lines;
    storage::Recordset rows;
    for (bool on = rows.open(statement, file) && !rows.eof(); on; on = rows.moveNext()) {
        QStringList fields;
        for (int i = 0; i < rows.fieldCount(); ++i)
            fields += rows.value(i).isNull() ? null : rows.value(i).toText();
        lines += fields.join(u'|');
    }
    return lines;
}

QList<storage::ErrorKind> takeErrors(storage::Connection& of)
{
    QList<storage::ErrorKind> kinds;
    for (const storage::Error& error : of.errors())
        kinds += error.kind;
    of.clearErrors();
    return kinds;
}
