#include "storage/schema/table_builder.h"

// What was typed into forms and not saved, in a user's own state folder.
namespace storage::schema {

using namespace Qt::StringLiterals;

Definition draftsFile()
{
    Definition definition;
    definition.tables = {
        TableBuilder(u"下書き"_s, Version::V311)
            .autoNumber(u"下書きID"_s)
            .texts(u"データファイル フォーム 対象 編集内容 全内容"_s)
            .moments(u"入力日時 更新日時"_s)
            .build(),
    };
    return definition;
}

} // namespace storage::schema
