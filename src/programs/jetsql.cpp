#include "core/data/database_password.h"
#include "storage/connection.h"
#include "storage/recordset.h"
#include "storage/sql/compile.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <iostream>
#include <string>

// Runs statements, one per line of the standard input, on a data file.

using namespace Qt::StringLiterals;

namespace {

QString escaped(QString text)
{
    text.replace(u'\\', u"\\\\"_s);
    text.replace(u'\t', u"\\t"_s);
    text.replace(u'\n', u"\\n"_s);
    text.replace(u'\r', u"\\r"_s);
    return text;
}

void print(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
}

void printError(const storage::Error& error)
{
    QString line = u"! "_s + escaped(error.message);
    if (error.position >= 0)
        line += u" ("_s + QString::number(error.position + 1) + u"文字目)"_s;
    if (!error.details.isEmpty())
        line += u" ("_s + escaped(error.details) + u')';
    print(line);
}

void printRows(storage::Recordset& rows)
{
    const int fields = rows.fieldCount();
    QString line;
    for (int field = 0; field < fields; ++field)
        line += (field > 0 ? u"\t"_s : QString()) + escaped(rows.fieldName(field));
    print(line);
    for (bool onRow = !rows.eof(); onRow; onRow = rows.moveNext()) {
        line.clear();
        for (int field = 0; field < fields; ++field) {
            if (field > 0)
                line += u'\t';
            const storage::Value value = rows.value(field);
            line += value.isNull() ? u"\\N"_s : escaped(value.toText());
        }
        print(line);
    }
}

// Runs one statement and prints its result; false when it failed.
bool run(const QString& statement, storage::Connection& file)
{
    file.clearErrors();
    storage::sql::Compiled compiled;
    if (file.compile(statement, &compiled)) {
        if (compiled.kind == storage::sql::StatementKind::Rows) {
            storage::Recordset rows;
            if (rows.open(statement, file))
                printRows(rows);
        } else {
            file.execute(statement);
        }
    }
    const bool succeeded = file.errors().isEmpty();
    if (!succeeded)
        printError(file.lastError());
    print({});
    return succeeded;
}

// Runs every line; false when one failed. With `timed` the time of each goes to the standard error.
bool runAll(storage::Connection& file, bool timed)
{
    bool succeeded = true;
    std::string line;
    while (std::getline(std::cin, line)) {
        const QString statement = QString::fromStdString(line).trimmed();
        if (statement.isEmpty())
            continue;
        QElapsedTimer timer;
        timer.start();
        succeeded = run(statement, file) && succeeded;
        std::fflush(stdout);
        if (timed)
            std::fprintf(stderr, "%.3f ms\n", static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return succeeded;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QCommandLineOption exclusive(u"exclusive"_s, u"Share the file with nobody."_s);
    const QCommandLineOption timed(u"time"_s, u"Print each statement's time on standard error."_s);
    QCommandLineParser arguments;
    arguments.setApplicationDescription(
        u"Runs the statements on the standard input, one per line, on a data file."_s);
    arguments.addHelpOption();
    arguments.addOptions({exclusive, timed});
    arguments.addPositionalArgument(u"file"_s, u"The data file."_s);
    arguments.process(application);
    if (arguments.positionalArguments().size() != 1)
        arguments.showHelp(1);

    storage::Connection file;
    const auto mode =
        arguments.isSet(exclusive) ? storage::Mode::ShareExclusive : storage::Mode::ReadWrite;
    if (!file.open(arguments.positionalArguments().first(),
                   QString::fromUtf16(core::DatabasePassword), mode)) {
        printError(file.lastError());
        print({});
        return 1;
    }
    return runAll(file, arguments.isSet(timed)) ? 0 : 1;
}
