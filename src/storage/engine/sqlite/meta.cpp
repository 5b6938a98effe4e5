#include "storage/engine/sqlite/meta.h"

#include "text/collate.h"
#include "text/fold.h"

namespace storage::engine::sqlite::meta {

QString ownTextVersion()
{
    return QString::number(text::foldVersion()) + u' ' + text::collatorVersion();
}

} // namespace storage::engine::sqlite::meta
