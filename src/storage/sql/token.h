#pragma once

#include <QString>

namespace storage::sql {

enum class TokenKind {
    End,
    Name,       // a bare word: a name or a keyword
    QuotedName, // a name in [brackets] or `back-quotes`, never a keyword
    Text,       // 'text' or "text"; the content with doubled quotes undone
    Whole,      // digits
    Real,       // digits with a point or an exponent
    DateTime,   // what stands between # signs
    Sign,       // punctuation and operators
    Bad         // `text` says, for the user, what is wrong here
};

struct Token {
    TokenKind kind = TokenKind::End;
    QString text;
    int position = 0; // offset into the statement, in UTF-16 units
    int end = 0;      // offset just behind it

    bool isSign(QStringView sign) const { return kind == TokenKind::Sign && text == sign; }
    // Keywords are plain Latin letters in any case.
    bool isKeyword(QStringView keyword) const
    {
        return kind == TokenKind::Name && text.compare(keyword, Qt::CaseInsensitive) == 0;
    }
};

} // namespace storage::sql
