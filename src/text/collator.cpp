#include "text/collator.h"

#include "text/collate.h"
#include "text/fold.h"
#include "text/utf16.h"

#include <QtGlobal>
#include <algorithm>
#include <memory>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/uset.h>
#include <unordered_map>
#include <vector>

namespace text {
namespace {

template <auto close> struct Closer {
    template <typename T> void operator()(T* opened) const { close(opened); }
};

using CollatorHandle = std::unique_ptr<UCollator, Closer<ucol_close>>;
using SetHandle = std::unique_ptr<USet, Closer<uset_close>>;

CollatorHandle openCollator(UCollationStrength strength)
{
    UErrorCode status = U_ZERO_ERROR;
    CollatorHandle collator(ucol_open("ja", &status));
    if (!collator || U_FAILURE(status))
        qFatal("The collation data of ICU cannot be loaded: %s", u_errorName(status));
    ucol_setStrength(collator.get(), strength);
    return collator;
}

// An open collator is not made for several threads at once, so each thread has its own.
const UCollator* collator(UCollationStrength strength)
{
    thread_local const CollatorHandle secondary = openCollator(UCOL_SECONDARY);
    if (strength == UCOL_SECONDARY)
        return secondary.get();
    thread_local const CollatorHandle primary = openCollator(UCOL_PRIMARY);
    return primary.get();
}

const UNormalizer2* nfcForm()
{
    UErrorCode status = U_ZERO_ERROR;
    static const UNormalizer2* const nfc = unorm2_getNFCInstance(&status);
    return nfc;
}

const UNormalizer2* nfdForm()
{
    UErrorCode status = U_ZERO_ERROR;
    static const UNormalizer2* const nfd = unorm2_getNFDInstance(&status);
    return nfd;
}

void normalize(const UNormalizer2* form, std::u16string_view text, std::u16string& out)
{
    const auto run = [&] {
        UErrorCode status = U_ZERO_ERROR;
        const int length = unorm2_normalize(form, text.data(), static_cast<int>(text.size()),
                                            out.data(), static_cast<int>(out.size()), &status);
        return static_cast<std::size_t>(std::max(length, 0));
    };
    out.resize(text.size() + 16);
    std::size_t length = run();
    if (length > out.size()) {
        out.resize(length);
        length = run();
    }
    out.resize(length);
}

std::string primaryWeights(std::u16string_view text)
{
    std::string weights;
    appendWeights(text, UCOL_PRIMARY, weights);
    return weights;
}

// All that begins with `prefix`, by bytes.
std::optional<WeightBounds> boundsOfPrefix(const std::string& prefix)
{
    constexpr char kHighest = '\xFF';
    std::string above = prefix;
    while (!above.empty() && above.back() == kHighest)
        above.pop_back();
    if (above.empty())
        return std::nullopt;
    ++above.back();
    return WeightBounds{prefix, above};
}

// Sequences that the order weighs as one, by the code point that they begin with when decomposed.
using Contractions = std::unordered_map<char32_t, std::vector<std::u16string>>;

Contractions readContractions()
{
    Contractions contractions;
    UErrorCode status = U_ZERO_ERROR;
    const SetHandle sequences(uset_openEmpty());
    const SetHandle expansions(uset_openEmpty());
    ucol_getContractionsAndExpansions(collator(UCOL_PRIMARY), sequences.get(), expansions.get(),
                                      false, &status);
    const int count = uset_getItemCount(sequences.get());
    for (int i = 0; i < count; ++i) {
        char16_t sequence[64];
        UChar32 first = 0;
        UChar32 last = 0;
        status = U_ZERO_ERROR;
        const int length =
            uset_getItem(sequences.get(), i, &first, &last, sequence, std::size(sequence), &status);
        if (length < 2 || U_FAILURE(status))
            continue; // a range of single code points
        std::u16string decomposed;
        normalize(nfdForm(), {sequence, static_cast<std::size_t>(length)}, decomposed);
        contractions[codePointAt(decomposed, 0)].push_back(decomposed);
    }
    return contractions;
}

const std::vector<std::u16string>& contractionsBeginningWith(char32_t c)
{
    static const Contractions contractions = readContractions();
    static const std::vector<std::u16string> none;
    const auto found = contractions.find(c);
    return found == contractions.end() ? none : found->second;
}

} // namespace

void appendWeights(std::u16string_view folded, UCollationStrength strength, std::string& out)
{
    thread_local std::u16string composed;
    normalize(nfcForm(), folded, composed);
    const std::size_t before = out.size();
    const auto run = [&] {
        const int written =
            ucol_getSortKey(collator(strength), composed.data(), static_cast<int>(composed.size()),
                            reinterpret_cast<std::uint8_t*>(out.data() + before),
                            static_cast<int>(out.size() - before));
        return static_cast<std::size_t>(std::max(written, 1));
    };
    constexpr std::size_t kUsualBytesPerUnit = 3;
    out.resize(before + composed.size() * kUsualBytesPerUnit + 16);
    std::size_t length = run();
    if (length > out.size() - before) {
        out.resize(before + length);
        length = run();
    }
    out.resize(before + length - 1); // without the terminating zero
}

WeightBounds united(const WeightBounds& a, const WeightBounds& b)
{
    return {std::min(a.lower, b.lower), std::max(a.upper, b.upper)};
}

// The weights of a text begin with the primary weights of its first character, unless a sequence
// that begins with it is weighed as one. The voiced mark, the iteration marks and the prolonged
// sound mark behind a kana change what follows the first weight, not the weight.
std::optional<WeightBounds> boundsOfTextsBeginningWith(char32_t folded)
{
    if (isMark(folded))
        return std::nullopt; // composition may move another mark before it
    std::u16string alone;
    appendCodePoint(folded, alone);
    auto bounds = boundsOfPrefix(primaryWeights(alone));
    for (const auto& sequence : contractionsBeginningWith(folded)) {
        const auto more = boundsOfPrefix(primaryWeights(sequence));
        if (!bounds || !more)
            return std::nullopt;
        bounds = united(*bounds, *more);
    }
    return bounds;
}

QString collatorVersion()
{
    UVersionInfo collation;
    UVersionInfo unicode;
    ucol_getVersion(collator(UCOL_SECONDARY), collation);
    u_getUnicodeVersion(unicode);
    char collationText[U_MAX_VERSION_STRING_LENGTH];
    char unicodeText[U_MAX_VERSION_STRING_LENGTH];
    u_versionToString(collation, collationText);
    u_versionToString(unicode, unicodeText);
    return QString::fromLatin1(collationText) + u'/' + QString::fromLatin1(unicodeText);
}

} // namespace text
