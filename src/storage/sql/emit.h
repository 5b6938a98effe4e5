#pragma once

#include "storage/sql/bound.h"
#include "storage/sql/dialect.h"
#include "storage/sql/finding.h"
#include "text/collate.h"

namespace storage::sql {

// Writes one bound statement in an engine's language. Each value becomes a parameter; names are
// quoted and, where there are several tables, qualified.
class Emitter {
public:
    // `arguments`: the values for each "?", where they are known already (they have been through
    // fill() once); without them their places are kept.
    explicit Emitter(const Dialect& dialect, QList<Value> arguments = {})
        : m_dialect(dialect), m_arguments(std::move(arguments))
    {
    }

    // The rows; `withAddress` adds the row's address as one more column.
    Emitted rows(const bound::Select& select, bool withAddress);
    // How the rows of a SELECT of tables are found by their addresses. `ownedBy`: the union, or the
    // DISTINCT, whose rows they are.
    Finding finding(const bound::Select& select, const bound::Select* ownedBy);
    // How many rows there are: without order, and without what only shapes the columns.
    Emitted count(const bound::Select& select);
    Emitted change(const bound::Insert& insert);
    Emitted change(const bound::Update& update);
    Emitted change(const bound::Delete& deletion);
    Emitted change(const bound::CreateTable& creation);
    Emitted change(const bound::AddColumn& addition);
    Emitted change(const bound::DropTable& drop);

private:
    using Columns = std::vector<bound::Source>;

    // emit.cpp
    QString select(const bound::Select& select, bool withAddress, bool numbered = false);
    QString parts(const bound::Select& select, bool numbered, bool withAddress);
    QString part(const bound::SelectPart& part, bool numbered, bool withAddress);
    QString limited(const QString& rows, qint64 top) const;
    static QString numberedColumn(size_t index);
    QStringList outputs(const bound::SelectPart& part, bool numbered);
    QString fromWhere(const bound::SelectPart& part, const QString& more = QString());
    QString from(const bound::From& from);
    QString term(const bound::FromTerm& term);
    QString order(const bound::Select& select, bool numbered, bool bySorting = false);
    static const bound::Column* fixedColumn(const bound::Select& select);
    // What the order of a text runs over.
    QString ordered(const QString& text, bool isDay);

    // emit_change.cpp
    QString fittedRows(const bound::Insert& insert, const bound::Select& source);

    // emit_finding.cpp
    QString addresses(const bound::SelectPart& part);
    QString ownAddresses(const bound::Select& select);
    QString unindexedWhere(const bound::SelectPart& part);
    void emitReading(const bound::SelectPart& part, Finding* result);
    void emitWays(const bound::Select& select, Finding* result);
    void emitListed(const bound::Select& select, Finding* result);
    void emitFilter(const bound::SelectPart& part, Finding* result);
    void emitWholeTable(const bound::Select& select, Finding* result);
    void emitPlace(const bound::Select& select, Finding* result);

    // emit_expression.cpp
    QString value(const bound::Expression& expression);
    QString folded(const bound::Expression& expression);
    QString inForm(bound::Form form, const bound::Expression& expression);
    QStringList values(const std::vector<bound::ExpressionPtr>& expressions);
    QString parameter(Parameter value);
    QString range(const QString& expression, const text::FoldRange& bounds);
    QString range(const QString& expression, CodePointRange characters);
    QString column(const bound::Column& column);
    QString node(const bound::Literal& node);
    QString node(const bound::Argument& node);
    QString node(const bound::Column& node);
    QString node(const bound::Concatenation& node);
    QString node(const bound::Fitted& node);
    QString node(const bound::Arithmetic& node);
    QString node(const bound::Negative& node);
    QString node(const bound::Comparison& node);
    QString node(const bound::Between& node);
    QString node(const bound::In& node);
    QString node(const bound::Like& node);
    QString node(const bound::BeginsWith& node);
    QString node(const bound::IsNull& node);
    QString node(const bound::Not& node);
    QString node(const bound::Logic& node);
    QString node(const bound::Aggregate& node);

    QString returning(const QStringList& columns) const;
    Emitted finished(QString text);
    QList<Parameter> takeParameters();

    const Dialect& m_dialect;
    QList<Value> m_arguments;
    QList<Parameter> m_parameters;
    const Columns* m_sources = nullptr;        // what columns stand for now
    const bound::SelectPart* m_part = nullptr; // whose outputs are being written
    // Of the union whose parts are being written: the columns of its result.
    const std::vector<bound::Output>* m_unionColumns = nullptr;
    QString m_rowLabel; // what the row being written is called, and its number
    QString m_row;
    bool m_rowsNeeded = false;              // by an output of m_part
    const bound::Column* m_byKey = nullptr; // a text that is asked for by its key
    bool m_unindexed = false;               // no index may be read for a column
};

} // namespace storage::sql
