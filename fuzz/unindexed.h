#pragma once

#include "storage/sql/ast.h"

// Takes from a statement what lets an index find the texts of a Like: `col Like p` becomes
// `(col & '') Like p`, with Null where the column is Null. The rows must stay the same ones.
namespace fuzz {

namespace ast = storage::sql::ast;

template <typename Node> ast::ExpressionPtr make(int position, Node node)
{
    return std::make_unique<ast::Expression>(ast::Expression{position, std::move(node)});
}

inline ast::ExpressionPtr both(int position, ast::LogicKind kind, ast::ExpressionPtr a,
                               ast::ExpressionPtr b)
{
    ast::Logic logic{kind, {}};
    logic.operands.push_back(std::move(a));
    logic.operands.push_back(std::move(b));
    return make(position, std::move(logic));
}

// (col & '' Like p AND col IS NOT NULL) OR (col IS NULL AND NULL)
inline ast::ExpressionPtr unindexed(int position, const ast::ColumnName& column, ast::Like like)
{
    const bool negated = std::exchange(like.negated, false);
    const auto read = [&] { return make(position, column); };
    ast::Concatenation joined;
    joined.parts.push_back(std::move(like.value));
    joined.parts.push_back(make(position, ast::Literal{storage::Value(QString())}));
    like.value = make(position, std::move(joined));
    auto known = both(position, ast::LogicKind::And, make(position, std::move(like)),
                      make(position, ast::IsNull{read(), true}));
    auto unknown = both(position, ast::LogicKind::And, make(position, ast::IsNull{read(), false}),
                        make(position, ast::Literal{}));
    auto result = both(position, ast::LogicKind::Or, std::move(known), std::move(unknown));
    return negated ? make(position, ast::Not{std::move(result)}) : std::move(result);
}

// How many were found in the condition, which may be null.
inline int unindex(ast::ExpressionPtr& condition)
{
    if (!condition)
        return 0;
    if (auto* logic = std::get_if<ast::Logic>(&condition->node)) {
        int found = 0;
        for (ast::ExpressionPtr& operand : logic->operands)
            found += unindex(operand);
        return found;
    }
    if (auto* negation = std::get_if<ast::Not>(&condition->node))
        return unindex(negation->operand);
    auto* like = std::get_if<ast::Like>(&condition->node);
    const auto* column = like ? std::get_if<ast::ColumnName>(&like->value->node) : nullptr;
    if (!column)
        return 0;
    condition = unindexed(condition->position, ast::ColumnName(*column), std::move(*like));
    return 1;
}

inline int unindex(ast::From& from)
{
    int found = 0;
    const auto inner = [&found](ast::FromTerm& term) {
        if (auto* nested = std::get_if<std::unique_ptr<ast::From>>(&term))
            found += unindex(**nested);
    };
    inner(from.first);
    for (ast::JoinStep& step : from.steps) {
        inner(step.right);
        found += unindex(step.condition);
    }
    return found;
}

inline int unindex(ast::Select& select)
{
    int found = 0;
    for (ast::SelectPart& part : select.parts) {
        found += unindex(part.where);
        if (part.from)
            found += unindex(*part.from);
    }
    return found;
}

} // namespace fuzz
