#include "storage_contract/scratch_file.h"

using namespace Qt::StringLiterals;
using namespace storage;

namespace {

// Rows read by the page are the rows read forward, in the same order.
class Pages : public ScratchFile {
protected:
    void SetUp() override
    {
        ScratchFile::SetUp();
        fill(60);
        execute(u"UPDATE 品目 SET ﾒｰｶｰ = 'あ' WHERE 数量 < 20"_s);
        execute(u"UPDATE 品目 SET ﾒｰｶｰ = 'ア' WHERE 数量 > 40"_s);
        execute(u"DELETE FROM 控え"_s);
        for (int number = 10; number < 30; ++number) {
            const QString row = QString::number(number) + u", '控"_s + QString::number(number % 3);
            execute(u"INSERT INTO 控え (数, 内容) VALUES ("_s + row + u"')"_s);
        }
    }

    QStringList pagedRows(const QString& statement, int pageSize)
    {
        Recordset recordset;
        recordset.setPageSize(pageSize);
        EXPECT_TRUE(recordset.open(statement, connection));
        QStringList lines;
        for (qint64 page = 1; page <= recordset.pageCount(); ++page) {
            EXPECT_TRUE(recordset.setAbsolutePage(page));
            for (int i = 0; i < pageSize && !recordset.eof(); ++i, recordset.moveNext()) {
                QStringList fields;
                for (int field = 0; field < recordset.fieldCount(); ++field) {
                    const Value value = recordset.value(field);
                    fields += value.isNull() ? u"-"_s : value.toText();
                }
                lines += fields.join(u'|');
            }
        }
        return lines;
    }
};

TEST_F(Pages, HoldTheRowsInTheirOrder)
{
    const QString joined = u"FROM 控え LEFT JOIN 品目 ON 控え.数 = 品目.数量 "_s;
    const QString statements[] = {
        u"SELECT * FROM 品目 ORDER BY ﾒｰｶｰ DESC ,番号"_s,
        u"SELECT 名称 & '/' & 数量 AS 表示 FROM 品目 WHERE 数量 > 5 ORDER BY ﾒｰｶｰ ,数量 DESC"_s,
        u"SELECT 数量 FROM 品目 WHERE 名称 Like '品[1-3]%' ORDER BY 名称"_s,
        u"SELECT 控え.*, 品目.名称 FROM 品目 INNER JOIN 控え ON 控え.数 = 品目.数量 "
        u"ORDER BY 控え.内容 DESC ,品目.番号"_s,
        u"SELECT 控え.内容, 品目.番号 "_s + joined + u"ORDER BY 控え.数 DESC"_s,
        u"SELECT a.番号, b.番号 AS 次 FROM 品目 AS a LEFT JOIN 品目 AS b ON a.番号 + 1 = b.数量 "
        u"ORDER BY a.番号 DESC"_s,
        u"SELECT DISTINCT ﾒｰｶｰ FROM 品目 ORDER BY ﾒｰｶｰ"_s,
        u"SELECT TOP 25 * FROM 品目 ORDER BY 番号 DESC"_s,
    };
    for (const QString& statement : statements) {
        SCOPED_TRACE(statement.toStdString());
        const QStringList forward = rows(statement);
        ASSERT_FALSE(forward.isEmpty());
        EXPECT_EQ(pagedRows(statement, 7), forward);
        EXPECT_EQ(pagedRows(statement, 200), forward);
    }
}

TEST_F(Pages, ARowOfALaterPageCanBeChanged)
{
    Recordset recordset;
    recordset.setPageSize(10);
    ASSERT_TRUE(recordset.open(u"SELECT * FROM 品目 WHERE 数量 > 0 ORDER BY 数量 DESC"_s,
                               connection, CursorType::Dynamic, LockType::Optimistic));
    ASSERT_TRUE(recordset.setAbsolutePage(3));
    EXPECT_EQ(recordset.text(u"名称"), u"品40"_s);
    ASSERT_TRUE(recordset.setValue(u"名称", u"変更"_s));
    ASSERT_TRUE(recordset.update());
    recordset.close();
    EXPECT_EQ(rows(u"SELECT 数量 FROM 品目 WHERE 名称 = '変更'"_s), QStringList{u"40"_s});
}

} // namespace
