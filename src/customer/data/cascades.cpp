#include "customer/data/cascades.h"

#include "storage/transaction.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace customer {

namespace {

// A statement is its first text, the number that follows it, and where there is a second text, the
// record's mark at its end.
enum class Number { None, UpdateId, Id };

struct CascadeStep {
    QString statement;
    Number number;
    QString markCondition = {};
};

using Steps = QList<CascadeStep>;

// A free-item value names its owner by the customer's own mark; 内容識別ID is the mark of the item.
Steps customerSteps()
{
    return {
        {u"DELETE FROM ユーザー Where ユーザー更新ID ="_s, Number::UpdateId},
        {u"DELETE FROM 件名 Where ユーザーID ="_s, Number::Id, u" and 件名識別ID = "_s},
        {u"DELETE FROM ログ Where ユーザーID ="_s, Number::Id, u" and ログ識別ID = "_s},
        {u"DELETE FROM 納品リスト Where ユーザーID ="_s, Number::Id, u" and 納品識別ID = "_s},
        {u"DELETE FROM リースリスト Where ユーザーID ="_s, Number::Id, u" and ﾘｰｽ識別ID = "_s},
        {u"DELETE FROM ユーザー関連ファイル Where ユーザーID ="_s, Number::Id,
         u" and ﾕｰｻﾞｰ関連識別ID = "_s},
        {u"DELETE FROM 件名関連ファイル Where ユーザーID ="_s, Number::Id,
         u" and 件名関連識別ID = "_s},
        {u"DELETE FROM 項目内容 Where ユーザーID ="_s, Number::Id, u" and ﾕｰｻﾞｰ識別ID = "_s},
    };
}

Steps caseSteps()
{
    return {
        {u"DELETE FROM 件名 Where 件名更新ID ="_s, Number::UpdateId},
        {u"DELETE FROM ログ Where 件名ID ="_s, Number::Id, u" AND ログ識別ID="_s},
        {u"DELETE FROM 件名関連ファイル Where 件名ID ="_s, Number::Id, u" AND 件名関連識別ID="_s},
    };
}

Steps deliverySteps()
{
    return {
        {u"DELETE FROM 納品リスト Where 納品更新ID ="_s, Number::UpdateId},
        {u"DELETE FROM リースリスト Where 納品ID ="_s, Number::Id, u" and ﾘｰｽ識別ID="_s},
    };
}

Steps freeItemSteps()
{
    return {
        {u"DELETE FROM 自由項目名 Where 項目更新ID ="_s, Number::UpdateId},
        {u"DELETE FROM 項目内容 Where 項目ID ="_s, Number::Id, u" And 内容識別ID= "_s},
    };
}

Steps stepsOf(Cascade cascade)
{
    switch (cascade) {
    case Cascade::Customer:
        return customerSteps();
    case Cascade::Case:
        return caseSteps();
    case Cascade::Delivery:
        return deliverySteps();
    case Cascade::FreeItem:
        return freeItemSteps();
    case Cascade::Log:
        return {{u"DELETE FROM ログ Where ログ更新ID ="_s, Number::UpdateId}};
    case Cascade::Lease:
        return {{u"DELETE FROM リースリスト Where ﾘｰｽ更新ID ="_s, Number::UpdateId}};
    case Cascade::ScheduleEntry:
        return {{u"DELETE FROM 予定 Where 予定更新ID ="_s, Number::UpdateId}};
    case Cascade::FreeItemValue:
        return {{u"DELETE FROM 項目内容 Where 項目内容更新ID ="_s, Number::UpdateId}};
    case Cascade::CustomSearch:
        return {{u"DELETE FROM カスタム検索 Where カスタム検索更新ID ="_s, Number::UpdateId}};
    case Cascade::CustomerShortcut:
        return {{u"DELETE FROM ユーザー関連ファイル Where ﾕｰｻﾞｰ関連ID ="_s, Number::Id,
                 u" and ﾕｰｻﾞｰ関連識別ID="_s}};
    case Cascade::CaseShortcut:
        return {{u"DELETE FROM 件名関連ファイル Where 件名関連ID ="_s, Number::Id,
                 u" and 件名関連識別ID="_s}};
    case Cascade::PrintTables:
        return {{u"DELETE FROM ２印刷自由項目内容"_s, Number::None},
                {u"DELETE FROM ３印刷納品"_s, Number::None},
                {u"DELETE FROM ４印刷件名"_s, Number::None}};
    }
    return {};
}

QString completed(const CascadeStep& step, const core::RecordKey& key)
{
    if (step.number == Number::None)
        return step.statement;
    const qint64 number = step.number == Number::Id ? key.id : key.updateId;
    const QString statement = step.statement + QString::number(number);
    return step.markCondition.isEmpty()
        ? statement
        : statement + step.markCondition + QString::number(key.mark);
}

} // namespace

bool runCascade(CustomerFile& file, Cascade cascade, const core::RecordKey& key)
{
    storage::Transaction transaction(file.connection);
    if (!transaction.isActive())
        return false;
    for (const CascadeStep& step : stepsOf(cascade)) {
        if (!file.connection.execute(completed(step, key)))
            return false;
    }
    return transaction.commit();
}

} // namespace customer
