#pragma once

#include "storage/sql/token.h"

#include <QStringView>

namespace storage::sql {

// Cuts a statement into tokens, one at a time. Blanks of any width separate tokens but are needed
// only between two bare words. Copies are cheap, so that a parser can look ahead with one.
class Lexer {
public:
    explicit Lexer(QStringView statement) : m_text(statement) {}

    // The next token; End (again and again) at the end, Bad where nothing can be made of the text.
    Token next();
    // Reads on from an offset inside the name that was read last, as if the name ended there.
    void splitName(int offset) { m_offset = offset; }

private:
    Token make(TokenKind kind, qsizetype start, QString text) const;
    Token bad(qsizetype start, QString message);
    char32_t codePointAt(qsizetype offset, qsizetype* length) const;
    void skipBlanks();
    Token bareName();
    Token delimited(TokenKind kind, char16_t close, bool doubling, const QString& missing);
    Token number();
    Token sign();

    QStringView m_text;
    qsizetype m_offset = 0;
    TokenKind m_last = TokenKind::End;
};

} // namespace storage::sql
