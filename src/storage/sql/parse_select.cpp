#include "storage/sql/parser.h"

using namespace Qt::StringLiterals;

namespace storage::sql {

ast::Select Parser::select()
{
    ast::Select whole;
    whole.parts.push_back(selectPart(&whole));
    while (acceptKeyword(u"union")) {
        const bool all = acceptKeyword(u"all");
        whole.parts.push_back(selectPart(nullptr));
        whole.parts.back().unionAll = all;
    }
    if (acceptKeyword(u"order")) {
        expectKeyword(u"by");
        whole.order = orderTerms();
    }
    if (atKeyword(u"group") || atKeyword(u"having"))
        fail(peek().position, u"GROUP BY と HAVING は使えません。"_s);
    return whole;
}

// `whole` receives the table of an INTO; null where none may stand.
ast::SelectPart Parser::selectPart(ast::Select* whole)
{
    ast::SelectPart part;
    expectKeyword(u"select");
    part.distinct = acceptKeyword(u"distinct");
    if (!part.distinct)
        acceptKeyword(u"all");
    if (atKeyword(u"top") && ahead().first.kind == TokenKind::Whole) {
        advance();
        bool fits = false;
        part.top = peek().text.toInt(&fits);
        if (!fits)
            expected(u"行の数"_s);
        advance();
    }
    part.items = selectList();
    if (whole && acceptKeyword(u"into"))
        whole->into = tableName();
    if (acceptKeyword(u"from"))
        part.from = from();
    part.where = optionalWhere();
    return part;
}

std::vector<ast::SelectItem> Parser::selectList()
{
    std::vector<ast::SelectItem> items;
    do
        items.push_back(selectItem());
    while (acceptSign(u","));
    return items;
}

ast::SelectItem Parser::selectItem()
{
    ast::SelectItem item;
    item.position = peek().position;
    if (acceptSign(u"*"))
        return item;
    if (atName()) {
        const auto [dot, star] = ahead();
        if (dot.isSign(u".") && star.isSign(u"*")) {
            item.starTable = advance().text;
            advance();
            advance();
            return item;
        }
    }
    item.expression = value();
    if (acceptKeyword(u"as") || atName())
        item.alias = name(u"列の別名"_s);
    return item;
}

ast::From Parser::from()
{
    const Nesting nesting(*this);
    ast::From result;
    result.first = fromTerm();
    while (!failed() && joinStep(&result)) {}
    return result;
}

ast::FromTerm Parser::fromTerm()
{
    if (!acceptSign(u"("))
        return aliasedTableName();
    auto inner = std::make_unique<ast::From>(from());
    expectSign(u")");
    return inner;
}

bool Parser::joinStep(ast::From* from)
{
    ast::JoinStep step;
    if (acceptSign(u",")) {
        step.kind = ast::JoinKind::Cross;
        step.right = fromTerm();
        from->steps.push_back(std::move(step));
        return true;
    }
    if (acceptKeyword(u"left")) {
        acceptKeyword(u"outer");
        step.kind = ast::JoinKind::Left;
    } else if (!acceptKeyword(u"inner") && !atKeyword(u"join")) {
        return false;
    }
    expectKeyword(u"join");
    step.right = fromTerm();
    expectKeyword(u"on");
    step.condition = condition();
    from->steps.push_back(std::move(step));
    return true;
}

std::vector<ast::OrderTerm> Parser::orderTerms()
{
    std::vector<ast::OrderTerm> terms;
    do {
        ast::OrderTerm term;
        term.expression = value();
        term.descending = acceptKeyword(u"desc");
        if (!term.descending)
            acceptKeyword(u"asc");
        terms.push_back(std::move(term));
    } while (acceptSign(u","));
    return terms;
}

} // namespace storage::sql
