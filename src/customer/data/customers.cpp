#include "customer/data/customers.h"

#include "customer/data/settings.h"

using namespace Qt::StringLiterals;

namespace customer {

namespace {

const QString CustomerRow = u"Select * From ユーザー Where ﾕｰｻﾞｰ更新ID ="_s;
const QString DeletedCustomerRow = u"Select * From ユーザー Where ユーザー更新ID ="_s;
const QString CustomerMax = u"SELECT Max(ﾕｰｻﾞｰ更新ID) as ma1 From ユーザー "_s;
const QString NewCustomerRow = u"SELECT *  From ユーザー Where ﾕｰｻﾞｰ更新ID = "_s;
const QString OwnerQuery = u"SELECT * From ユーザー WHERE ﾕｰｻﾞｰID = "_s;
const QString OwnerMark = u" AND ﾕｰｻﾞｰ識別ID = "_s;
const QString Customers = u"SELECT * FROM ユーザー"_s;
const QString CustomerCount = u"SELECT count(*) as ma1 FROM ユーザー"_s;
const QString ByCustomerId = u" ,ユーザー.ﾕｰｻﾞｰID"_s;
const QString ByReading = u" ORDER BY ユーザー.表示名ﾌﾘｶﾞﾅ"_s;
const QString ByHomePhone = u" ORDER BY ユーザー.自宅ＴＥＬ"_s;
const QString ByCompanyPhone = u" ORDER BY ユーザー.会社ＴＥＬ"_s;
const QString ByEmail = u" ORDER BY ユーザー.[E-MAIL]"_s;

// A free-item value names its owner by the customer's own mark; 内容識別ID is the mark of the item.
records::Cascade customerCascade()
{
    using enum records::KeyedText::Number;
    return {
        {u"DELETE FROM ユーザー Where ユーザー更新ID ="_s, UpdateId},
        {u"DELETE FROM 件名 Where ユーザーID ="_s, Id, u" and 件名識別ID = "_s},
        {u"DELETE FROM ログ Where ユーザーID ="_s, Id, u" and ログ識別ID = "_s},
        {u"DELETE FROM 納品リスト Where ユーザーID ="_s, Id, u" and 納品識別ID = "_s},
        {u"DELETE FROM リースリスト Where ユーザーID ="_s, Id, u" and ﾘｰｽ識別ID = "_s},
        {u"DELETE FROM ユーザー関連ファイル Where ユーザーID ="_s, Id,
         u" and ﾕｰｻﾞｰ関連識別ID = "_s},
        {u"DELETE FROM 件名関連ファイル Where ユーザーID ="_s, Id, u" and 件名関連識別ID = "_s},
        {u"DELETE FROM 項目内容 Where ユーザーID ="_s, Id, u" and ﾕｰｻﾞｰ識別ID = "_s},
    };
}

} // namespace

const records::RecordTable& customerTable()
{
    static const records::RecordTable table{
        .name = u"ユーザー"_s,
        .numbering = {CustomerMax, NewCustomerRow, u"ユーザー"_s},
        .updateIdColumn = u"ﾕｰｻﾞｰ更新ID"_s,
        .markColumn = u"ﾕｰｻﾞｰ識別ID"_s,
        .idColumn = u"ﾕｰｻﾞｰID"_s,
        .rowQuery = {CustomerRow},
        .deleteQuery = {DeletedCustomerRow},
        .cascade = customerCascade(),
        .refusal = records::blankRefused({u"表示名ﾌﾘｶﾞﾅ"_s, u"表示名"_s},
                                         u"表示ﾌﾘｶﾞﾅ・表示名は空白禁止です。"_s),
        .derived = records::changedNow,
    };
    return table;
}

const records::ListDescription& customerList()
{
    static const records::ListDescription list{
        .statement = Customers,
        .updateId = u"ﾕｰｻﾞｰ更新ID"_s,
        .mark = u"ﾕｰｻﾞｰ識別ID"_s,
        .id = u"ﾕｰｻﾞｰID"_s,
        .stamp = u"更新日時"_s,
        .columns = {{u"表示名"_s, u"表示名"_s, ByReading, 300, true, u"ユーザー.表示名"_s},
                    {u"自宅TEL"_s, u"自宅TEL"_s, ByHomePhone, 140},
                    {u"会社TEL"_s, u"会社TEL"_s, ByCompanyPhone, 140},
                    {u"E-MAIL"_s, u"E-MAIL"_s, ByEmail, 180}},
        .check = u"Y印字"_s,
        .tieBreak = ByCustomerId,
        .order = settings::CustomerOrder,
        .descending = settings::CustomerDescending,
        .pageRows = settings::CustomersShown,
        .choices = {ByReading, ByCompanyPhone, ByHomePhone},
        .countQuery = CustomerCount,
        .countField = u"ma1"_s,
    };
    return list;
}

const QStringList& customerTexts()
{
    static const QStringList columns{
        u"表示名ﾌﾘｶﾞﾅ"_s, u"表示名"_s,  u"ﾕｰｻﾞｰ名ﾌﾘｶﾞﾅ"_s, u"ﾕｰｻﾞｰ名"_s,
        u"自宅TEL"_s,     u"自宅FAX"_s, u"自宅住所"_s,     u"会社名ﾌﾘｶﾞﾅ"_s,
        u"会社名"_s,      u"部署"_s,    u"会社TEL"_s,      u"会社FAX"_s,
        u"会社住所"_s,    u"E-MAIL"_s,  u"URL"_s,          u"備考"_s,
    };
    return columns;
}

std::optional<records::Record> readOwner(records::Database& data, qint64 id, qint64 mark)
{
    return records::readRecord(data, customerTable(),
                               OwnerQuery + QString::number(id) + OwnerMark
                                   + QString::number(mark));
}

QString customerText(const records::Record& customer)
{
    QString text;
    for (const QString& column : customerTexts()) {
        const QString value = customer.text(column);
        if (!value.isEmpty())
            text += column + u"： "_s + value + u"\r\n"_s;
    }
    return text;
}

} // namespace customer
