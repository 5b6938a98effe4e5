#include "storage/engine/sqlite/functions.h"

#include "storage/schema/column_value.h"
#include "text/collate.h"
#include "text/dates.h"
#include "text/fold.h"
#include "text/like.h"
#include "text/like_filter.h"

#include <sqlite3.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace storage::engine::sqlite {

namespace {

using namespace Qt::StringLiterals;

using Context = sqlite3_context*;
using Arguments = sqlite3_value**;

constexpr int MisfitCode = SQLITE_MISMATCH;

std::string_view textOf(sqlite3_value* value)
{
    const void* bytes = sqlite3_value_text(value);
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    return bytes ? std::string_view(static_cast<const char*>(bytes), size) : std::string_view();
}

void giveText(Context context, std::string_view text)
{
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void giveDateTime(Context context, const QDateTime& moment)
{
    giveText(context, text::formatDateTime(moment).toStdString());
}

// The text of a value as the surface joins it: a real number without a trailing ".0".
std::string_view joinedText(sqlite3_value* value, std::string& scratch)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_FLOAT:
        scratch = Value(sqlite3_value_double(value)).toText().toStdString();
        return scratch;
    default:
        return textOf(value);
    }
}

void foldFunction(Context context, int /*count*/, Arguments arguments)
{
    if (sqlite3_value_type(arguments[0]) != SQLITE_TEXT) {
        sqlite3_result_value(context, arguments[0]);
        return;
    }
    thread_local std::string folded;
    folded.clear();
    text::appendFoldedUtf8(textOf(arguments[0]), folded);
    giveText(context, folded);
}

void keyFunction(Context context, int /*count*/, Arguments arguments)
{
    if (sqlite3_value_type(arguments[0]) != SQLITE_TEXT) {
        sqlite3_result_value(context, arguments[0]);
        return;
    }
    thread_local std::string key;
    key.clear();
    text::appendSortKey(textOf(arguments[0]), key);
    sqlite3_result_blob64(context, key.data(), key.size(), SQLITE_TRANSIENT);
}

// What a statement keeps from row to row: the pattern, and the buffers that the parts are joined in
// and folded into.
struct PreparedLike {
    explicit PreparedLike(QStringView patternText) : pattern(patternText), filter(patternText) {}

    text::LikePattern pattern;
    text::LikeFilter filter;
    std::string joined;
    std::u16string folded;
};

// Short fields are folded faster joined than each by itself.
bool matches(PreparedLike& like, int count, Arguments parts)
{
    like.joined.clear();
    std::string scratch;
    for (int i = 0; i < count; ++i)
        like.joined += joinedText(parts[i], scratch);
    if (!like.filter.mayMatch(like.joined))
        return false;
    like.folded.clear();
    text::appendFolded(like.joined, like.folded);
    return like.pattern.matchesFolded(like.folded);
}

void likeFunction(Context context, int count, Arguments arguments)
{
    const auto isNull = [arguments](int i) {
        return sqlite3_value_type(arguments[i]) == SQLITE_NULL;
    };
    if (isNull(0) || (count == 2 && isNull(1))) {
        sqlite3_result_null(context);
        return;
    }
    if (auto* kept = static_cast<PreparedLike*>(sqlite3_get_auxdata(context, 0))) {
        sqlite3_result_int(context, matches(*kept, count - 1, arguments + 1));
        return;
    }
    const std::string_view pattern = textOf(arguments[0]);
    auto fresh = std::make_unique<PreparedLike>(
        QString::fromUtf8(pattern.data(), static_cast<qsizetype>(pattern.size())));
    sqlite3_result_int(context, matches(*fresh, count - 1, arguments + 1));
    sqlite3_set_auxdata(context, 0, fresh.release(),
                        [](void* kept) { delete static_cast<PreparedLike*>(kept); });
}

void joinFunction(Context context, int count, Arguments arguments)
{
    std::string joined;
    std::string scratch;
    for (int i = 0; i < count; ++i)
        joined += joinedText(arguments[i], scratch);
    giveText(context, joined);
}

void stampFunction(Context context, int /*count*/, Arguments arguments)
{
    const std::string_view old = textOf(arguments[0]);
    const std::string_view written = textOf(arguments[1]);
    // Both are in the one stored form, whose order as text is that of time.
    if (written.empty() || written > old) {
        sqlite3_result_value(context, arguments[1]);
        return;
    }
    const auto previous =
        text::parseDateTime(QString::fromUtf8(old.data(), static_cast<qsizetype>(old.size())));
    if (previous)
        giveDateTime(context, previous->addMSecs(1));
    else
        sqlite3_result_value(context, arguments[1]);
}

QString stringOf(sqlite3_value* value)
{
    const std::string_view text = textOf(value);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

Value valueOf(sqlite3_value* value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return Value(qint64{sqlite3_value_int64(value)});
    case SQLITE_FLOAT:
        return Value(sqlite3_value_double(value));
    default:
        return Value(stringOf(value));
    }
}

void giveValue(Context context, const Value& value)
{
    switch (value.type()) {
    case ValueType::Null:
        sqlite3_result_null(context);
        break;
    case ValueType::Integer:
        sqlite3_result_int64(context, value.toInteger());
        break;
    case ValueType::Real:
        sqlite3_result_double(context, value.toReal());
        break;
    case ValueType::Text:
    case ValueType::DateTime:
        giveText(context, value.toText().toStdString());
        break;
    }
}

void fittedFunction(Context context, int /*count*/, Arguments arguments)
{
    schema::Column column;
    column.type = static_cast<schema::ColumnType>(sqlite3_value_int(arguments[1]));
    column.maxLength = sqlite3_value_int(arguments[2]);
    const Value value = valueOf(arguments[0]);
    if (const auto fitting = fitColumn(value, column)) {
        giveValue(context, *fitting);
        return;
    }
    const Value row = valueOf(arguments[5]);
    const QString place = row.isNull() ? QString() : stringOf(arguments[4]) + u' ' + row.toText();
    const QByteArray message = misfitMessage(value, stringOf(arguments[3]), place).toUtf8();
    sqlite3_result_error(context, message.constData(), static_cast<int>(message.size()));
    sqlite3_result_error_code(context, MisfitCode);
}

struct Function {
    const char* name;
    int arguments; // -1: any number
    void (*body)(Context, int, Arguments);
};

constexpr std::array Functions{
    Function{"corvane_fold", 1, foldFunction},   Function{"corvane_key", 1, keyFunction},
    Function{"corvane_like", -1, likeFunction},  Function{"corvane_join", -1, joinFunction},
    Function{"corvane_stamp", 2, stampFunction}, Function{"corvane_fitted", 6, fittedFunction},
};

} // namespace

bool registerFunctions(sqlite3* handle)
{
    // Innocuous: they may stand in the schema of a file that somebody else has made.
    constexpr int Flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    for (const Function& function : Functions) {
        if (sqlite3_create_function_v2(handle, function.name, function.arguments, Flags, nullptr,
                                       function.body, nullptr, nullptr, nullptr)
            != SQLITE_OK)
            return false;
    }
    return true;
}

// The engine uses the same code for a mismatch of its own, but says it in Latin letters.
QString ownMessage(sqlite3* handle)
{
    if (sqlite3_errcode(handle) != MisfitCode)
        return {};
    const QString said = QString::fromUtf8(sqlite3_errmsg(handle));
    return said.startsWith(u'列') ? said : QString();
}

} // namespace storage::engine::sqlite
