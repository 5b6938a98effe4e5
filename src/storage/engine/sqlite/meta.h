#pragma once

#include <QString>

// The table of ours that makes a file a data file: names and values, among them the versions of
// fold and collator that its indexes were made with.
namespace storage::engine::sqlite::meta {

inline const QString Table = QStringLiteral("_corvane");
inline const QString Format = QStringLiteral("format");
inline const QString TextVersion = QStringLiteral("text");

// The only format there is yet.
inline const QString CurrentFormat = QStringLiteral("1");
// Stands instead of a version while copies of different versions share the file.
inline const QString MixedVersions = QStringLiteral("mixed");

// What this program's folds and keys depend on.
QString ownTextVersion();

} // namespace storage::engine::sqlite::meta
