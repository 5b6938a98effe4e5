#pragma once

#include "storage/sql/bound.h"

// Small things that the parts of the binder share.
namespace storage::sql {

inline bool isNumber(bound::Type type)
{
    return type == bound::Type::Whole || type == bound::Type::Real;
}

// A name as messages show it.
QString quoted(const QString& name);

bound::ExpressionPtr makeLiteral(Value value, int position);

} // namespace storage::sql
