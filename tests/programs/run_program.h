#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QStringList>

struct ProgramResult {
    int status = -1; // -1 when it did not run to its end
    QString output;
    QString errors;
};

// Runs one of the programs, which lie beside the tests, with this text as its standard input.
inline ProgramResult runProgram(const QString& name, const QStringList& arguments,
                                const QString& input = {})
{
    QProcess process;
    process.start(QCoreApplication::applicationDirPath() + u'/' + name, arguments);
    process.write(input.toUtf8());
    process.closeWriteChannel();
    const bool finished =
        process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit;
    return {finished ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}
