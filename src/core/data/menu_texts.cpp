#include "core/data/menu_texts.h"

#include "core/data/program_folder.h"
#include "text/code_page.h"

#include <QFile>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace core {

namespace {

// No menu is longer than this; what is must be some other file.
constexpr qint64 LongestFile = 65536;

} // namespace

QStringList readMenuTexts(const QString& programFolder)
{
    QFile file(programFile(programFolder, u"\\menu.ini"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.read(LongestFile);
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString all = utf8(bytes);
    if (utf8.hasError())
        all = text::fromCp932(bytes);
    all.remove(u'\r');
    QStringList lines = all.split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

} // namespace core
