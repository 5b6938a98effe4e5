#include "ui/file_chooser.h"

#include "ui/deletion_hold.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace ui {
namespace {

// "All(*.*)|*.*" as the dialog wants it: "All (*)"; "*.*" means every name there, also one without
// a dot.
QString dialogFilter(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString name = parts[i].left(parts[i].indexOf(u'('));
        QString patterns = parts[i + 1];
        patterns.replace(u';', u' ');
        filters.append(name + u" ("_s + (patterns == u"*.*" ? u"*"_s : patterns) + u')');
    }
    return filters.join(u";;"_s);
}

} // namespace

QString FileDialogs::chooseFile(QWidget* parent, const QString& title, const QString& filter)
{
    const DeletionHold hold;
    const QString path = QFileDialog::getOpenFileName(
        parent, title, m_lastFolder.isEmpty() ? QDir::homePath() : m_lastFolder,
        dialogFilter(filter));
    if (!path.isEmpty())
        m_lastFolder = QFileInfo(path).absolutePath();
    return path;
}

} // namespace ui
