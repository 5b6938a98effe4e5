#pragma once

#include <QString>

// The tables of ours in a data file that say what the file is.
namespace storage::engine::sqlite::meta {

// Names and values: what makes a file a data file, among them its format and the versions of fold
// and collator that its indexes were made with.
inline const QString Table = QStringLiteral("_corvane");
inline const QString Format = QStringLiteral("format");
inline const QString TextVersion = QStringLiteral("text");

inline const QString CurrentFormat = QStringLiteral("2");
// Without marks and lists of texts; its days are ordered by their keys.
inline const QString FormerFormat = QStringLiteral("1");
// Stands instead of a version while copies of different versions share the file.
inline const QString MixedVersions = QStringLiteral("mixed");

// What declared types do not say of a column: "table", "column", mark.
inline const QString Marks = QStringLiteral("_columns");
inline const QString DayMark = QStringLiteral("day");       // schema::Column::isDay
inline const QString ListedMark = QStringLiteral("listed"); // schema::Column::isListed

// What this program's folds and keys depend on.
QString ownTextVersion();

} // namespace storage::engine::sqlite::meta
