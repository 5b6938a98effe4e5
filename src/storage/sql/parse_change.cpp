#include "storage/sql/parser.h"

using namespace Qt::StringLiterals;

namespace storage::sql {

ast::ExpressionPtr Parser::optionalWhere()
{
    return acceptKeyword(u"where") ? condition() : nullptr;
}

ast::Insert Parser::insert()
{
    ast::Insert result;
    expectKeyword(u"into");
    result.table = tableName();
    if (acceptSign(u"(")) {
        do
            result.columns.push_back(positionedName(u"列の名前"_s));
        while (acceptSign(u","));
        expectSign(u")");
    }
    if (acceptKeyword(u"values"))
        result.source = valueList();
    else if (atKeyword(u"select"))
        result.source = select();
    else
        expected(u"「VALUES」か「SELECT」"_s);
    return result;
}

ast::Update Parser::update()
{
    ast::Update result;
    result.table = tableName();
    expectKeyword(u"set");
    do {
        ast::Assignment assignment;
        assignment.column = positionedName(u"列の名前"_s);
        if (acceptSign(u"."))
            assignment.column = positionedName(u"列の名前"_s);
        expectSign(u"=");
        assignment.value = value();
        result.assignments.push_back(std::move(assignment));
    } while (acceptSign(u","));
    result.where = optionalWhere();
    return result;
}

ast::Delete Parser::deletion()
{
    ast::Delete result;
    acceptSign(u"*");
    expectKeyword(u"from");
    result.table = tableName();
    result.where = optionalWhere();
    return result;
}

} // namespace storage::sql
