#include "storage/transaction.h"

#include "storage/connection.h"

namespace storage {

Transaction::Transaction(Connection& connection) : m_connection(connection)
{
    if (m_connection.begin())
        m_depth = m_connection.transactionDepth();
}

Transaction::~Transaction()
{
    rollBack();
}

bool Transaction::commit()
{
    if (!isActive() || m_connection.transactionDepth() != m_depth) {
        rollBack();
        return m_connection.fail(
            {ErrorKind::State, QStringLiteral("トランザクションは開始されていません。")});
    }
    m_depth = 0;
    return m_connection.commit();
}

void Transaction::rollBack()
{
    // A connection that was closed meanwhile has rolled back already.
    while (isActive() && m_connection.transactionDepth() >= m_depth) {
        if (!m_connection.rollBack())
            break;
    }
    m_depth = 0;
}

} // namespace storage
