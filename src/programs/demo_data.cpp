#include "programs/support/demo/demo_folder.h"
#include "programs/support/templates.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>

// Makes a program folder with sample data.

using namespace Qt::StringLiterals;

namespace {

// A whole number from 0 to ten million; -1 for anything else.
int countOf(const QString& text)
{
    bool isNumber = false;
    const int count = text.toInt(&isNumber);
    return isNumber && count >= 0 && count <= 10'000'000 ? count : -1;
}

// The menu's texts lie with the empty data files, beside the folder of the programs.
void copyMenu(const QString& folder)
{
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString source = programs.filePath(u"../share/corvane/menu.ini"_s);
    const QString target = QDir(folder).filePath(u"menu.ini"_s);
    if (!QFile::exists(target) && !QFile::copy(source, target))
        QTextStream(stderr) << "demo_data: " << source << " cannot be copied." << Qt::endl;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"demo_data"_s);
    const QCommandLineOption customers(u"customers"_s, u"Customers, each with three cases."_s,
                                       u"count"_s, u"1000"_s);
    const QCommandLineOption repairs(u"repairs"_s, u"Repair jobs."_s, u"count"_s, u"1000"_s);
    const QCommandLineOption seed(u"seed"_s, u"The same seed gives the same data."_s, u"number"_s,
                                  u"1"_s);
    const QCommandLineOption today(u"today"_s, u"The day that the data's days are counted from."_s,
                                   u"yyyy/mm/dd"_s, QDate::currentDate().toString(u"yyyy/MM/dd"_s));
    QCommandLineParser arguments;
    arguments.setApplicationDescription(u"Makes a program folder with sample data."_s);
    arguments.addHelpOption();
    arguments.addOptions({customers, repairs, seed, today});
    arguments.addPositionalArgument(u"folder"_s, u"A new or empty folder."_s);
    arguments.process(application);

    bool seedIsNumber = false;
    programs::demo::Size size;
    size.customers = countOf(arguments.value(customers));
    size.repairs = countOf(arguments.value(repairs));
    size.seed = arguments.value(seed).toULongLong(&seedIsNumber);
    size.today = QDate::fromString(arguments.value(today), u"yyyy/MM/dd"_s);
    const QStringList folders = arguments.positionalArguments();
    if (folders.size() != 1 || size.customers < 0 || size.repairs < 0 || !seedIsNumber
        || !size.today.isValid())
        arguments.showHelp(1);

    const QString& folder = folders.first();
    if (const auto error = programs::demo::makeFolderWithSamples(folder, size)) {
        programs::printError(folder, *error);
        return 1;
    }
    copyMenu(folder);
    return 0;
}
