#pragma once

#include "storage/connection.h"

#include <QStringList>

// The rows of a statement, the fields of each joined by "|" and Null as `null`. None when the
// statement is refused, which the connection's errors tell.
QStringList rowsOf(storage::Connection& file, const QString& statement,
                   const QString& null = QStringLiteral("-"));
// The kinds of what has failed so far; forgets them.
QList<storage::ErrorKind> takeErrors(storage::Connection& of);
