#include "programs/support/demo/people.h"

#include "text/width.h"

namespace programs::demo {

using namespace Qt::StringLiterals;

namespace {

QString asHiragana(QString text)
{
    for (QChar& character : text) {
        if (character >= u'ァ' && character <= u'ヶ')
            character = QChar(character.unicode() - u'ァ' + u'ぁ');
    }
    return text;
}

} // namespace

Person makePerson(Random& random)
{
    const Word& family = random.pick(familyNames());
    const Word& given = random.pick(givenNames());
    return {family.written + u'　' + given.written, family.reading + u' ' + given.reading};
}

Firm makeFirm(Random& random)
{
    const int kind = random.below(100);
    const Word& name = kind < 80 ? random.pick(firmNames())
        : kind < 96              ? random.pick(latinFirmNames())
                                 : random.pick(oddFirmNames());
    const Word& trade = random.pick(firmTrades());
    const QString written = name.written + trade.written;
    const QString reading = name.reading + trade.reading;
    switch (random.below(4)) {
    case 0:
        return {u"株式会社"_s + written, reading};
    case 1:
        return {written + u"株式会社"_s, reading};
    case 2:
        return {u"有限会社"_s + written, reading};
    default:
        return {written, reading};
    }
}

QString asTyped(Random& random, const QString& reading)
{
    const int way = random.below(20);
    if (way < 12)
        return text::toHalfWidthKatakana(reading);
    if (way < 15)
        return reading;
    if (way < 18)
        return asHiragana(reading);
    const qsizetype half = reading.size() / 2;
    return asHiragana(reading.left(half)) + text::toHalfWidthKatakana(reading.mid(half));
}

QString makeTelephone(Random& random, const Place& place)
{
    const int exchangeLength = 6 - static_cast<int>(place.areaCode.size());
    QString number = place.areaCode + u"-0"_s;
    number += random.digits(exchangeLength - 1) + u'-';
    number += random.digits(4);
    return number;
}

QString makeMobile(Random& random)
{
    QString number = random.chance(60) ? u"090-0"_s : u"080-0"_s;
    number += random.digits(3) + u'-';
    number += random.digits(4);
    return number;
}

QString makeAddress(Random& random, const Place& place)
{
    QString address = place.name;
    address += random.pick(towns());
    address += QString::number(random.between(1, 9)) + u'-';
    address += QString::number(random.between(1, 30)) + u'-';
    address += QString::number(random.between(1, 25));
    if (random.chance(25)) {
        address += u"　第"_s + QString::number(random.between(1, 9)) + u"ビル"_s;
        address += QString::number(random.between(1, 12)) + u"Ｆ"_s;
    }
    return address;
}

QString makeMailAddress(Random& random, int number)
{
    static const QStringList domains = {u"example.jp"_s, u"example.co.jp"_s, u"example.com"_s,
                                        u"example.net"_s};
    static const QStringList users = {u"info"_s, u"office"_s, u"mail"_s,
                                      u"shop"_s, u"k-"_s,     u"T."_s};
    const QString user = random.pick(users) + QString::number(number);
    return user + u'@' + random.pick(domains);
}

} // namespace programs::demo
