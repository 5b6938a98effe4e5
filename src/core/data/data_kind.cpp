#include "core/data/data_kind.h"

#include "core/data/program_folder.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace core {

namespace {

// Of the files that lie beside one another under the data name this has the longest name.
constexpr int LongestSuffix = sizeof(".mdb-journal") - 1;
constexpr int LongestFileName = 255; // bytes

} // namespace

QString kindSelector(DataKind kind)
{
    return kind == DataKind::Customer ? u"顧客管理データ"_s : u"修理管理データ"_s;
}

QString rowKind(DataKind kind)
{
    return kind == DataKind::Customer ? u"顧客管理"_s : u"修理管理"_s;
}

std::optional<DataKind> kindOfRow(QStringView text)
{
    for (const DataKind kind : {DataKind::Customer, DataKind::Repair}) {
        if (text == rowKind(kind))
            return kind;
    }
    return std::nullopt;
}

QString dataFolder(const QString& programFolder, DataKind kind)
{
    return programSubfolder(programFolder, kind == DataKind::Customer ? u"Corvane"_s : u"Care"_s);
}

QString templateFile(const QString& programFolder, DataKind kind)
{
    return programFile(programFolder,
                       kind == DataKind::Customer ? u"\\Corvane.mdb"_s : u"\\Care.mdb"_s);
}

QString dataFile(const QString& programFolder, DataKind kind, const QString& name)
{
    if (name.isEmpty() || !whyNoFileName(name).isEmpty())
        return {};
    return dataFolder(programFolder, kind) + u'/' + name + u".mdb"_s;
}

QString whyNoFileName(const QString& name)
{
    const auto isForbidden = [](QChar c) {
        return c == u'/' || c == u'\\' || c.category() == QChar::Other_Control;
    };
    if (std::any_of(name.begin(), name.end(), isForbidden))
        return u"データ名に「/」「\\」や改行、タブは使えません。"_s;
    // The last is where compaction writes.
    if (name == u"."_s || name == u".."_s || name == u"最適化"_s)
        return u"「"_s + name + u"」はデータ名に使えません。"_s;
    if (name.front().isSpace() || name.back().isSpace())
        return u"データ名の前後に空白は使えません。"_s;
    const QByteArray bytes = QFile::encodeName(name);
    if (QFile::decodeName(bytes) != name)
        return u"ファイル名に使えない文字がデータ名に含まれています。"_s;
    if (bytes.size() + LongestSuffix > LongestFileName)
        return u"データ名が長すぎます。全角で８１文字以内にして下さい。"_s;
    return {};
}

} // namespace core
