#pragma once

namespace storage {

class Connection;

// A transaction (inside another one: a savepoint) that rolls back unless it was committed.
class Transaction {
public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // False when the transaction could not begin; the reason is in the connection's errors.
    bool isActive() const { return m_depth > 0; }
    // False when the engine refused; everything since the beginning is then undone.
    bool commit();
    void rollBack();

private:
    Connection& m_connection;
    int m_depth = 0; // of the connection while this is the innermost transaction; 0 once it is over
};

} // namespace storage
