#include "storage/schema/column_value.h"
#include "storage/sql/compile.h"
#include "storage/sql/dialect.h"
#include "text/fold.h"
#include "text/like.h"

namespace storage::sql {
namespace {

std::variant<Value, Error> formed(const Value& value, const Slot& slot, const Dialect& dialect)
{
    switch (slot.form) {
    case SlotForm::Plain:
        break;
    case SlotForm::Folded:
        return Value(text::fold(value.toText()));
    case SlotForm::Pattern: {
        const text::LikePattern pattern(value.toText());
        if (!pattern.valid())
            return Error{ErrorKind::Syntax, pattern.error().left(100)};
        return Value(dialect.likePattern(value.toText()));
    }
    case SlotForm::Fitted:
        if (auto fitting = fitColumn(value, slot.column))
            return std::move(*fitting);
        return Error{ErrorKind::Type, misfitMessage(value, slot.column.name)};
    }
    return value;
}

} // namespace

std::optional<Error> fill(QList<Parameter>* parameters, const QList<Value>& arguments,
                          const Dialect& dialect)
{
    for (Parameter& parameter : *parameters) {
        const auto* slot = std::get_if<Slot>(&parameter);
        if (!slot)
            continue;
        auto value = formed(arguments.value(slot->argument), *slot, dialect);
        if (auto* error = std::get_if<Error>(&value))
            return std::move(*error);
        parameter = std::get<Value>(std::move(value));
    }
    return {};
}

std::optional<Error> fill(Compiled* compiled, const QList<Value>& arguments, const Dialect& dialect)
{
    if (arguments.isEmpty())
        return {};
    compiled->arguments = arguments;
    if (auto error = fill(&compiled->statement.parameters, arguments, dialect))
        return error;
    return fill(&compiled->count.parameters, arguments, dialect);
}

} // namespace storage::sql
