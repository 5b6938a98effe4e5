#pragma once

#include "storage/engine/session.h"

namespace storage::engine::sqlite {

class SqliteSession;

// What an opening found in the file.
struct FileState {
    bool formerFormat = false;
    bool foreignTextIndexes = false;
};

// Part of its session.
class SqliteUpkeep final : public Upkeep {
public:
    SqliteUpkeep(SqliteSession& session, const FileState& state)
        : m_session(session), m_state(state)
    {
    }

    std::optional<Error> create(const schema::Definition& definition) override;
    std::optional<Error> completeIndexes(const schema::Definition& definition) override;
    bool hasFormerFormat() const override { return m_state.formerFormat; }
    std::optional<Error> convert(const schema::Definition& definition) override;
    bool hasForeignTextIndexes() const override { return m_state.foreignTextIndexes; }
    std::optional<Error> renewTextIndexes(bool onlyCopy) override;

private:
    // Runs the steps in a transaction of their own; the first failure undoes them all.
    template <typename Steps> std::optional<Error> inTransaction(Steps steps);
    std::optional<Error> run(const QString& statement);
    std::optional<Error> runAll(const QList<sql::Emitted>& statements);
    // What the definition asks for and the file lacks.
    struct Missing {
        QList<schema::Index> indexes;
        QList<sql::Emitted> marks; // the statements that write them
    };
    std::optional<Error> findMissing(const schema::Definition& definition, Missing* missing);
    std::optional<Error> makeIndexes(const QList<schema::Index>& indexes);
    std::optional<Error> fillLists();
    std::optional<Error> dropIndexesBut(const QList<schema::Index>& kept);

    SqliteSession& m_session;
    FileState m_state;
};

} // namespace storage::engine::sqlite
