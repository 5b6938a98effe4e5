#include "storage/sql/parser.h"

#include <array>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

using schema::ColumnType;

constexpr std::array<std::pair<QStringView, ColumnType>, 26> kTypes{
    std::pair{u"long", ColumnType::Long},     std::pair{u"integer", ColumnType::Long},
    std::pair{u"int", ColumnType::Long},      std::pair{u"short", ColumnType::Long},
    std::pair{u"smallint", ColumnType::Long}, std::pair{u"byte", ColumnType::Long},
    std::pair{u"yesno", ColumnType::Long},    std::pair{u"bit", ColumnType::Long},
    std::pair{u"double", ColumnType::Real},   std::pair{u"float", ColumnType::Real},
    std::pair{u"single", ColumnType::Real},   std::pair{u"real", ColumnType::Real},
    std::pair{u"currency", ColumnType::Real}, std::pair{u"money", ColumnType::Real},
    std::pair{u"numeric", ColumnType::Real},  std::pair{u"decimal", ColumnType::Real},
    std::pair{u"string", ColumnType::Text},   std::pair{u"text", ColumnType::Text},
    std::pair{u"varchar", ColumnType::Text},  std::pair{u"char", ColumnType::Text},
    std::pair{u"memo", ColumnType::Text},     std::pair{u"longtext", ColumnType::Text},
    std::pair{u"date", ColumnType::DateTime}, std::pair{u"datetime", ColumnType::DateTime},
    std::pair{u"time", ColumnType::DateTime}, std::pair{u"timestamp", ColumnType::DateTime}};

} // namespace

ast::AddColumn Parser::addColumn()
{
    ast::AddColumn result;
    expectKeyword(u"table");
    result.table = tableName();
    expectKeyword(u"add");
    acceptKeyword(u"column");
    result.column = positionedName(u"列の名前"_s);
    columnType(&result);
    return result;
}

void Parser::columnType(ast::AddColumn* column)
{
    const QString typeExpected = u"列の型(Long、Double、STRING(n)、date など)"_s;
    for (const auto& [word, type] : kTypes) {
        if (!acceptKeyword(word))
            continue;
        column->type = type;
        if (type != ColumnType::Text || !acceptSign(u"("))
            return;
        bool fits = false;
        column->maxLength = peek().text.toInt(&fits);
        if (peek().kind != TokenKind::Whole || !fits || column->maxLength < 1)
            return expected(u"1 以上の文字数"_s);
        advance();
        return expectSign(u")");
    }
    expected(typeExpected);
}

ast::DropTable Parser::dropTable()
{
    expectKeyword(u"table");
    return ast::DropTable{tableName()};
}

} // namespace storage::sql
