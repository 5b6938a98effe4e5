#include "core/data/failure.h"

#include "core/data/messages.h"
#include "storage/base/error.h"
#include "storage/connection.h"

using namespace Qt::StringLiterals;

namespace core {

void tellFailure(Messages& messages, QStringView what, const storage::Error& error)
{
    const QString text = what.toString();
    messages.refuse(error.message.isEmpty() ? text : text + u"\r\n"_s + error.message,
                    error.details);
}

bool tellFailure(Messages& messages, QStringView what, const storage::Connection& connection)
{
    tellFailure(messages, what, connection.lastError());
    return false;
}

void tellRowGone(Messages& messages)
{
    messages.warn(u"データが削除されている為、更新できません。\r\nリスト表示を更新して下さい。"_s);
}

} // namespace core
