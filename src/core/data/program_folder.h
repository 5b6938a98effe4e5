#pragma once

#include <QString>
#include <QStringView>

namespace core {

// Where main.mdb, the templates, menu.ini and the data files lie.
struct ProgramFolder {
    QString path;      // absolute
    QString originals; // the read-only originals to fill it from; empty when it is not to be filled
};

// Finds the program folder: what CORVANE_HOME names; else the executable's folder when it holds
// main.mdb and can be written (portable use); else "corvane" under the user's data folder, to be
// filled from share/corvane beside the executable's folder.
ProgramFolder findProgramFolder(const QString& executableFolder);

// Copies the originals that are missing into the folder, so that a first start that was cut short
// is completed by the next. Does nothing for a folder that is not to be filled. What fails is
// skipped.
void fillProgramFolder(const ProgramFolder& folder);

// The real path of a folder that stands in the program folder, found whatever its letter case.
QString programSubfolder(const QString& programFolder, const QString& name);

// The real path of a name that begins with "\" and stands below the program folder, such as
// "\care\最適化.mdb". Folder names are found whatever their letter case, the file's name is taken
// as it is.
QString programFile(const QString& programFolder, QStringView name);

} // namespace core
