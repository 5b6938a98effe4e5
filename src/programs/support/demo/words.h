#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// The words that sample data is made of. All firms, products and towns are invented.
namespace programs::demo {

// A word and how it is read, in full-width katakana (a latin word: in latin letters).
struct Word {
    QString written;
    QString reading;
};

struct Place {
    QString name;     // prefecture and municipality
    QString areaCode; // of its telephones
};

struct Product {
    QString maker;
    QString name;
    QString model; // completed by a number
    int price;
};

const QList<Word>& familyNames();
const QList<Word>& givenNames();
const QList<Word>& firmNames();
const QList<Word>& latinFirmNames();
const QList<Word>& oddFirmNames(); // read with a digit, a sign or a kanji first
const QList<Word>& firmTrades();   // stands behind a firm's name
const QList<Place>& places();
const QStringList& towns();
const QStringList& departments();
const QList<Product>& products();
const QList<Product>& parts(); // the maker stands empty
const QStringList& caseTitles();
const QStringList& caseNotes();
const QStringList& customerNotes();
const QStringList& logTexts();
const QStringList& appointments();
const QStringList& faults();
const QStringList& treatments();
const QStringList& accessories();

} // namespace programs::demo
