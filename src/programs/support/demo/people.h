#pragma once

#include "programs/support/demo/random.h"
#include "programs/support/demo/words.h"

// People and firms made of the words at hand.
namespace programs::demo {

struct Person {
    QString name;
    QString reading;
};

struct Firm {
    QString name;
    QString reading;
};

Person makePerson(Random& random);
Firm makeFirm(Random& random);

// A reading as different people type it: half-width or full-width katakana, hiragana, or mixed.
QString asTyped(Random& random, const QString& reading);

// Numbers and addresses that belong to nobody: exchanges that begin with 0 are never given out, and
// the domains are reserved for examples.
QString makeTelephone(Random& random, const Place& place);
QString makeMobile(Random& random);
QString makeAddress(Random& random, const Place& place);
QString makeMailAddress(Random& random, int number);

} // namespace programs::demo
