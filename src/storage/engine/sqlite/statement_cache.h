#pragma once

#include "storage/engine/sqlite/cursor.h"

#include <QString>

#include <list>

namespace storage::engine::sqlite {

// The statements used last, prepared: choosing one record after another asks the same few questions
// with other numbers. A statement in use is not among them.
class StatementCache {
public:
    // Takes a statement out by its text; null when it is not kept.
    Statement take(const QString& text);
    // Keeps a statement that nobody steps any more.
    void keep(const QString& text, Statement statement);

private:
    struct Kept {
        QString text;
        Statement statement;
    };
    std::list<Kept> m_kept; // the one used last in front
};

} // namespace storage::engine::sqlite
