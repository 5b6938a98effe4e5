#include "programs/support/templates.h"

#include <QCommandLineParser>
#include <QCoreApplication>

using namespace Qt::StringLiterals;

// Writes the empty data files that ship with the program.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"make_templates"_s);

    const QCommandLineOption versionOption(
        u"version"_s, u"Schema version of the files: 3.1.1, or 3.0.0 to try the upgrade."_s,
        u"version"_s, u"3.1.1"_s);
    QCommandLineParser arguments;
    arguments.setApplicationDescription(u"Writes the empty main.mdb, Corvane.mdb and Care.mdb."_s);
    arguments.addHelpOption();
    arguments.addOption(versionOption);
    arguments.addPositionalArgument(u"folder"_s, u"Where to; none of the files may be there."_s);
    arguments.process(application);

    const QStringList folders = arguments.positionalArguments();
    const QString version = arguments.value(versionOption);
    if (folders.size() != 1 || (version != u"3.1.1" && version != u"3.0.0"))
        arguments.showHelp(1);

    using storage::schema::Version;
    const auto error = programs::writeTemplates(
        folders.first(), version == u"3.0.0" ? Version::V300 : Version::V311);
    if (error)
        programs::printError(folders.first(), *error);
    return error ? 1 : 0;
}
