#include "storage/sql/lexer.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace storage::sql {
namespace {

// Longer signs stand before those that they begin with.
constexpr std::array<QStringView, 21> kSigns{u"<>", u"<=", u">=", u"!=", u"<", u">", u"=",
                                             u"(",  u")",  u"{",  u"}",  u",", u".", u";",
                                             u"*",  u"/",  u"+",  u"-",  u"&", u"^", u"?"};

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool continuesName(char32_t c)
{
    switch (QChar::category(c)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Titlecase:
    case QChar::Letter_Modifier:
    case QChar::Letter_Other:
    case QChar::Number_DecimalDigit:
    case QChar::Number_Letter:
    case QChar::Number_Other:
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
        return true;
    default:
        return c == U'_';
    }
}

// Only the plain digits begin a number; a full-width one begins a name.
bool beginsName(char32_t c)
{
    return continuesName(c) && !(c >= U'0' && c <= U'9');
}

// No control characters and no halves of characters: a name is repeated in the engine's language.
bool isPrintable(const QString& name)
{
    return name.isValidUtf16()
        && std::ranges::none_of(name, [](QChar c) { return c.category() == QChar::Other_Control; });
}

} // namespace

Token Lexer::next()
{
    skipBlanks();
    Token token;
    const QChar c = m_offset < m_text.size() ? m_text[m_offset] : QChar();
    const QChar after = m_offset + 1 < m_text.size() ? m_text[m_offset + 1] : QChar();
    const bool afterName = m_last == TokenKind::Name || m_last == TokenKind::QuotedName;
    if (m_offset >= m_text.size())
        token = make(TokenKind::End, m_offset, QString());
    else if (c == u'\'')
        token = delimited(TokenKind::Text, u'\'', true, u"閉じる「'」がありません。"_s);
    else if (c == u'"')
        token = delimited(TokenKind::Text, u'"', true, u"閉じる「\"」がありません。"_s);
    else if (c == u'[')
        token = delimited(TokenKind::QuotedName, u']', false, u"閉じる「]」がありません。"_s);
    else if (c == u'`')
        token = delimited(TokenKind::QuotedName, u'`', false, u"閉じる「`」がありません。"_s);
    else if (c == u'#')
        token = delimited(TokenKind::DateTime, u'#', false, u"閉じる「#」がありません。"_s);
    else if (isDigit(c) || (c == u'.' && isDigit(after) && !afterName))
        token = number();
    else
        token = bareName();
    m_last = token.kind;
    return token;
}

Token Lexer::make(TokenKind kind, qsizetype start, QString text) const
{
    return Token{kind, std::move(text), static_cast<int>(start), static_cast<int>(m_offset)};
}

// Nothing behind a fault can be trusted, so the statement ends there.
Token Lexer::bad(qsizetype start, QString message)
{
    m_offset = m_text.size();
    return make(TokenKind::Bad, start, std::move(message));
}

char32_t Lexer::codePointAt(qsizetype offset, qsizetype* length) const
{
    const QChar c = m_text[offset];
    *length = 1;
    if (!c.isHighSurrogate() || offset + 1 >= m_text.size() || !m_text[offset + 1].isLowSurrogate())
        return c.unicode();
    *length = 2;
    return QChar::surrogateToUcs4(c, m_text[offset + 1]);
}

void Lexer::skipBlanks()
{
    while (m_offset < m_text.size() && m_text[m_offset].isSpace())
        ++m_offset;
}

Token Lexer::bareName()
{
    const qsizetype start = m_offset;
    qsizetype length = 0;
    if (!beginsName(codePointAt(start, &length)))
        return sign();
    do
        m_offset += length;
    while (m_offset < m_text.size() && continuesName(codePointAt(m_offset, &length)));
    return make(TokenKind::Name, start, m_text.sliced(start, m_offset - start).toString());
}

Token Lexer::delimited(TokenKind kind, char16_t close, bool doubling, const QString& missing)
{
    const qsizetype start = m_offset++;
    QString content;
    while (true) {
        const qsizetype found = m_text.indexOf(close, m_offset);
        if (found < 0)
            return bad(start, missing);
        content += m_text.sliced(m_offset, found - m_offset);
        m_offset = found + 1;
        if (!doubling || m_offset >= m_text.size() || m_text[m_offset] != close)
            break;
        content += QChar(close);
        ++m_offset;
    }
    if (kind == TokenKind::QuotedName && content.isEmpty())
        return bad(start, u"名前が空です。"_s);
    if (kind == TokenKind::QuotedName && !isPrintable(content))
        return bad(start, u"名前に使えない文字があります。"_s);
    return make(kind, start, content);
}

Token Lexer::number()
{
    const qsizetype start = m_offset;
    TokenKind kind = TokenKind::Whole;
    const auto skipDigits = [this] {
        while (m_offset < m_text.size() && isDigit(m_text[m_offset]))
            ++m_offset;
    };
    skipDigits();
    if (m_offset < m_text.size() && m_text[m_offset] == u'.') {
        kind = TokenKind::Real;
        ++m_offset;
        skipDigits();
    }
    // An "e" belongs to the number only with digits behind it: `5else` is 5 and a word.
    if (m_offset < m_text.size() && m_text[m_offset].toLower() == u'e') {
        qsizetype digits = m_offset + 1;
        if (digits < m_text.size() && (m_text[digits] == u'+' || m_text[digits] == u'-'))
            ++digits;
        if (digits < m_text.size() && isDigit(m_text[digits])) {
            kind = TokenKind::Real;
            m_offset = digits;
            skipDigits();
        }
    }
    return make(kind, start, m_text.sliced(start, m_offset - start).toString());
}

Token Lexer::sign()
{
    for (const QStringView candidate : kSigns) {
        if (m_text.sliced(m_offset).startsWith(candidate)) {
            const qsizetype start = m_offset;
            m_offset += candidate.size();
            return make(TokenKind::Sign, start, candidate.toString());
        }
    }
    return bad(m_offset, u"ここでは使えない文字です。"_s);
}

} // namespace storage::sql
