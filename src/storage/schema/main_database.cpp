#include "storage/schema/table_builder.h"

// The application database: registered files, administrator, version, common masters.
namespace storage::schema {

using namespace Qt::StringLiterals;

Definition mainDatabase(Version version)
{
    Definition definition;
    definition.tables = {
        TableBuilder(u"main"_s, version)
            .autoNumber(u"No"_s)
            .texts(u"種類 ﾃﾞｰﾀ ﾊﾟｽﾜｰﾄﾞ"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"共通商品"_s, version)
            .autoNumber(u"商品更新ID"_s)
            .longs(u"商品ID 商品識別ID"_s)
            .texts(u"ﾒｰｶｰ名 商品名 型名"_s)
            .reals(u"定価 仕切"_s)
            .moments(u"更新日時"_s)
            .build(),
        TableBuilder(u"共通部品"_s, version)
            .autoNumber(u"部品更新ID"_s)
            .longs(u"部品ID 部品識別ID"_s)
            .texts(u"名称 部番"_s)
            .reals(u"定価 仕切"_s)
            .moments(u"更新日時"_s)
            .added()
            .longs(u"売値"_s)
            .build(),
    };
    definition.indexes = {
        index(u"共通商品"_s, {fold(u"型名"_s)}),
        index(u"共通商品"_s, {key(u"ﾒｰｶｰ名"_s), key(u"商品名"_s)}),
        index(u"共通部品"_s, {fold(u"名称"_s), fold(u"部番"_s)}),
        index(u"共通部品"_s, {key(u"名称"_s), key(u"部番"_s)}),
    };
    // The version row is rewritten by its number, so it has to be row 5.
    const Value versionName(version == Version::V300 ? u"3.0.0"_s : u"3.1.1"_s);
    definition.rows = {
        {u"main"_s,
         {{u"No"_s, Value(1)},
          {u"種類"_s, Value(u"管理者"_s)},
          {u"ﾃﾞｰﾀ"_s, Value(u"Admin"_s)},
          {u"更新日時"_s, firstMoment()}}},
        {u"main"_s,
         {{u"No"_s, Value(5)},
          {u"種類"_s, Value(u"ﾊﾞｰｼﾞｮﾝ"_s)},
          {u"ﾃﾞｰﾀ"_s, versionName},
          {u"更新日時"_s, firstMoment()}}},
    };
    return definition;
}

} // namespace storage::schema
