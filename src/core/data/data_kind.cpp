#include "core/data/data_kind.h"

#include "core/data/program_folder.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace core {

namespace {

// Of the files that lie beside one another under the data name this has the longest name.
constexpr int LongestSuffix = sizeof(".mdb-journal") - 1;
constexpr int LongestFileName = 255; // bytes

// Whether the name leads to one file in its folder and not elsewhere, or to another name's file.
bool leadsToItsFile(const QString& name)
{
    const auto isForbidden = [](QChar c) {
        return c == u'/' || c.category() == QChar::Other_Control;
    };
    return !name.isEmpty() && std::none_of(name.begin(), name.end(), isForbidden)
        && QFile::decodeName(QFile::encodeName(name)) == name;
}

// A device keeps its name with an extension behind it: "con.mdb" and "con.2024.mdb" are the
// console.
bool isDevice(const QString& name)
{
    static const QRegularExpression devices(
        u"^(con|prn|aux|nul|conin\\$|conout\\$|(com|lpt)[0-9¹²³]) *(\\.|$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return devices.match(name).hasMatch();
}

QString asCompared(const QString& name)
{
    return name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

} // namespace

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
    if (!leadsToItsFile(name))
        return {};
    return dataFolder(programFolder, kind) + u'/' + name + u".mdb"_s;
}

QString whyNoNewName(const QString& name)
{
    const auto isForbidden = [](QChar c) {
        return u"\\/:*?\"<>|"_s.contains(c) || c.category() == QChar::Other_Control;
    };
    if (std::any_of(name.begin(), name.end(), isForbidden))
        return u"データ名に「\\」「/」「:」「*」「?」「\"」「<」「>」「|」や改行、タブは使えません。"_s;
    // The last is where compaction writes.
    if (name == u"."_s || name == u".."_s || name == u"最適化"_s)
        return u"「"_s + name + u"」はデータ名に使えません。"_s;
    if (isDevice(name))
        return u"「"_s + name + u"」は装置の名前になる為、データ名に使えません。"_s;
    if (name.front().isSpace() || name.back().isSpace())
        return u"データ名の前後に空白は使えません。"_s;
    if (name.back() == u'.')
        return u"データ名の最後に「.」は使えません。"_s;
    if (!leadsToItsFile(name))
        return u"ファイル名に使えない文字がデータ名に含まれています。"_s;
    if (QFile::encodeName(name).size() + LongestSuffix > LongestFileName)
        return u"データ名が長すぎます。全角で８１文字以内にして下さい。"_s;
    return {};
}

bool isSameName(const QString& one, const QString& other)
{
    return asCompared(one) == asCompared(other);
}

} // namespace core
