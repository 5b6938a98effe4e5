#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace ui {

// A name in pieces, each with the kana that it was typed with, so that what happens to the name
// happens to its reading too. A piece whose kana cannot be told (pasted, or half deleted) has none.
class NameReading {
public:
    // A name of which nothing is known.
    void reset(const QString& name);
    // The name was edited and is now this one, with the cursor behind what was edited. `kana`: what
    // the new part was converted from, if it was converted.
    void edited(const QString& name, qsizetype cursor, const std::optional<QString>& kana);
    // The reading in half-width katakana as far as it is known from the beginning on: what stands
    // behind an unknown piece would be filed under a wrong kana.
    QString known() const;

private:
    struct Piece {
        QString name;
        std::optional<QString> kana;
    };
    using Pieces = QList<Piece>;

    QString name() const;
    void replace(const QString& before, const QString& name, qsizetype cursor,
                 const std::optional<QString>& kana);
    void splitAt(qsizetype place);
    void splitPiece(qsizetype index, qsizetype place);

    Pieces m_pieces;
    QHash<QString, Pieces> m_seen; // by the whole name: what is undone comes back as it was
};

} // namespace ui
