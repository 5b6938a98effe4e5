#include "programs/support/demo/demo_folder.h"

#include "core/data/database_password.h"
#include "programs/support/demo/sample_file.h"
#include "programs/support/demo/words.h"
#include "programs/support/templates.h"

#include <QDir>

namespace programs::demo {

using namespace Qt::StringLiterals;
using storage::Error;

namespace {

std::optional<Error> registerSamples(storage::Connection& main, Calendar& calendar)
{
    RowWriter rows(main, u"main"_s, {u"種類"_s, u"ﾃﾞｰﾀ"_s, u"更新日時"_s});
    const QString name = QString::fromUtf16(SampleName);
    rows.add({u"顧客管理"_s, name, calendar.lastChange()});
    rows.add({u"修理管理"_s, name, calendar.lastChange()});
    return rows.finish();
}

std::optional<Error> writeMasters(storage::Connection& main, Calendar& calendar)
{
    RowWriter goods(main, u"共通商品"_s,
                    {u"商品更新ID"_s, u"商品ID"_s, u"商品識別ID"_s, u"ﾒｰｶｰ名"_s, u"商品名"_s,
                     u"型名"_s, u"定価"_s, u"仕切"_s, u"更新日時"_s});
    int number = 0;
    for (const Product& product : products()) {
        ++number;
        goods.add({number, number, 0, product.maker, product.name, product.model + u"100"_s,
                   product.price, product.price * 6 / 10, calendar.lastChange()});
    }
    if (auto error = goods.finish())
        return error;

    RowWriter spares(main, u"共通部品"_s,
                     {u"部品更新ID"_s, u"部品ID"_s, u"部品識別ID"_s, u"名称"_s, u"部番"_s,
                      u"定価"_s, u"売値"_s, u"仕切"_s, u"更新日時"_s});
    number = 0;
    for (const Product& part : parts()) {
        ++number;
        spares.add({number, number, 0, part.name, part.model, part.price, part.price * 9 / 10,
                    part.price * 6 / 10, calendar.lastChange()});
    }
    return spares.finish();
}

std::optional<Error> fillMainDatabase(const QString& path, const Size& size)
{
    storage::Connection main;
    if (!main.open(path, QString::fromUtf16(core::DatabasePassword)) || !main.begin())
        return main.lastError();
    Random random(size.seed + 2);
    Calendar calendar(random, size.today);
    if (auto error = registerSamples(main, calendar))
        return error;
    if (auto error = writeMasters(main, calendar))
        return error;
    if (!main.commit())
        return main.lastError();
    return std::nullopt;
}

} // namespace

std::optional<Error> makeFolderWithSamples(const QString& folder, const Size& size)
{
    const QDir place(folder);
    if (auto error = writeTemplates(folder, storage::schema::Version::V311))
        return error;
    if (auto error = fillMainDatabase(place.filePath(u"main.mdb"_s), size))
        return error;
    const QString file = u'/' + QString::fromUtf16(SampleName) + u".mdb"_s;
    for (const QString& kind : {u"Corvane"_s, u"Care"_s}) {
        if (auto error = makeFolder(place.filePath(kind)))
            return error;
    }
    if (auto error = writeCustomerSample(place.filePath(u"Corvane"_s + file), size))
        return error;
    return writeRepairSample(place.filePath(u"Care"_s + file), size);
}

} // namespace programs::demo
