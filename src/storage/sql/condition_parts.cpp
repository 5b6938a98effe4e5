#include "storage/sql/condition_parts.h"

#include <algorithm>

namespace storage::sql {

using bound::Expression;

namespace {

bool isColumn(const bound::ExpressionPtr& expression)
{
    return std::holds_alternative<bound::Column>(expression->node);
}

// Whether an index over a column may find what meets the condition.
bool isIndexable(const Expression& condition)
{
    if (const auto* comparison = std::get_if<bound::Comparison>(&condition.node))
        return comparison->kind != ast::ComparisonKind::NotEqual
            && (isColumn(comparison->left) || isColumn(comparison->right));
    if (const auto* between = std::get_if<bound::Between>(&condition.node))
        return !between->negated && isColumn(between->value);
    if (const auto* in = std::get_if<bound::In>(&condition.node))
        return !in->negated && isColumn(in->value);
    if (const auto* like = std::get_if<bound::Like>(&condition.node))
        return like->prefix.has_value();
    if (std::holds_alternative<bound::BeginsWith>(condition.node))
        return true;
    const auto* logic = std::get_if<bound::Logic>(&condition.node);
    if (!logic)
        return false;
    const auto indexable = [](const bound::ExpressionPtr& operand) {
        return isIndexable(*operand);
    };
    return logic->kind == ast::LogicKind::And ? std::ranges::any_of(logic->operands, indexable)
                                              : std::ranges::all_of(logic->operands, indexable);
}

// Collects the sources that an expression speaks of.
class SourcesOf {
public:
    explicit SourcesOf(const Expression& expression) { look(expression); }

    // The only one; nothing when there are several or none.
    std::optional<qsizetype> only() const
    {
        return m_found.size() == 1 ? std::optional(m_found.front()) : std::nullopt;
    }

private:
    void look(const Expression& expression)
    {
        std::visit([this](const auto& node) { look(node); }, expression.node);
    }
    void look(const bound::ExpressionPtr& expression)
    {
        if (expression)
            look(*expression);
    }
    void look(const std::vector<bound::ExpressionPtr>& expressions)
    {
        for (const bound::ExpressionPtr& each : expressions)
            look(*each);
    }
    void look(const bound::Literal&) {}
    void look(const bound::Argument&) {}
    void look(const bound::Column& column)
    {
        if (!m_found.contains(column.source))
            m_found.append(column.source);
    }
    void look(const bound::Concatenation& node) { look(node.parts); }
    void look(const bound::Fitted& node) { look(node.operand); }
    void look(const bound::Arithmetic& node)
    {
        for (const bound::Arithmetic::Term& term : node.terms)
            look(term.operand);
    }
    void look(const bound::Negative& node) { look(node.operand); }
    void look(const bound::Comparison& node)
    {
        look(node.left);
        look(node.right);
    }
    void look(const bound::Between& node)
    {
        look(node.value);
        look(node.low);
        look(node.high);
    }
    void look(const bound::In& node)
    {
        look(node.value);
        look(node.list);
    }
    void look(const bound::Like& node) { look(node.parts); }
    void look(const bound::BeginsWith& node) { look(node.column); }
    void look(const bound::IsNull& node) { look(node.value); }
    void look(const bound::Not& node) { look(node.operand); }
    void look(const bound::Logic& node) { look(node.operands); }
    void look(const bound::Aggregate& node) { look(node.argument); }

    QList<qsizetype> m_found;
};

bool isInnerOnly(const bound::From& from)
{
    const auto isInner = [](const bound::FromTerm& term) {
        const auto* nested = std::get_if<std::unique_ptr<bound::From>>(&term);
        return !nested || isInnerOnly(**nested);
    };
    return isInner(from.first)
        && std::ranges::all_of(from.steps, [&isInner](const bound::JoinStep& step) {
               return step.kind != ast::JoinKind::Left && isInner(step.right);
           });
}

} // namespace

bool isSearch(const Expression& condition)
{
    if (const auto* like = std::get_if<bound::Like>(&condition.node))
        return !like->prefix;
    const auto* logic = std::get_if<bound::Logic>(&condition.node);
    return logic && std::ranges::any_of(logic->operands, [](const bound::ExpressionPtr& operand) {
               return isSearch(*operand);
           });
}

bool isOfOneRecord(const Expression& condition)
{
    const auto* logic = std::get_if<bound::Logic>(&condition.node);
    return logic && logic->kind == ast::LogicKind::And
        && std::ranges::all_of(logic->operands, [](const bound::ExpressionPtr& operand) {
               const auto* comparison = std::get_if<bound::Comparison>(&operand->node);
               return comparison && comparison->kind == ast::ComparisonKind::Equal
                   && comparison->form == bound::Form::Plain;
           });
}

std::optional<FilterParts> filterParts(const bound::SelectPart& part)
{
    if (!part.where || !isInnerOnly(*part.from))
        return std::nullopt;
    std::vector<const Expression*> all{part.where.get()};
    const auto* logic = std::get_if<bound::Logic>(&part.where->node);
    if (logic && logic->kind == ast::LogicKind::And) {
        all.clear();
        for (const bound::ExpressionPtr& operand : logic->operands)
            all.push_back(operand.get());
    }
    std::vector<FilterParts> bySource(part.sources.size());
    for (std::size_t i = 0; i < bySource.size(); ++i)
        bySource[i].source = static_cast<qsizetype>(i);
    for (const Expression* each : all) {
        const auto source = SourcesOf(*each).only();
        for (FilterParts& parts : bySource) {
            if (source && parts.source == *source)
                parts.parts.push_back(each);
            else
                parts.whole = false;
        }
        if (source && isIndexable(*each))
            bySource[static_cast<std::size_t>(*source)].indexable = true;
    }
    const auto best = std::ranges::max_element(bySource, {}, [](const FilterParts& parts) {
        return parts.parts.empty() ? 0 : (parts.indexable ? 2 : 0) + (parts.whole ? 1 : 0);
    });
    if (best->parts.empty() || (!best->indexable && !best->whole))
        return std::nullopt;
    return std::move(*best);
}

} // namespace storage::sql
