#include "text/code_page.h"

#include "text/utf16.h"

#include <QtGlobal>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

namespace text {
namespace {

// The ICU converter that goes by the names Windows-31J and windows-932. Its own fallbacks are left
// off, since they replace kanji by other forms; kTwins stands in for those that lose nothing.
constexpr const char* kConverter = "ibm-943_P15A-2003";

struct Twin {
    char16_t character;
    char16_t inCodePage;
};

// Characters that other systems type where Windows has the second one.
constexpr Twin kTwins[] = {{0x301C, 0xFF5E}, {0x2212, 0xFF0D}, {0x2016, 0x2225}, {0x2014, 0x2015},
                           {0x00A2, 0xFFE0}, {0x00A3, 0xFFE1}, {0x00A5, 0xFFE5}, {0x00AC, 0xFFE2}};

// Private characters of one vendor, behind those that users define. They stand for other characters
// or for bytes without meaning.
constexpr bool isVendorCharacter(std::size_t c)
{
    return c >= 0xE758 && c <= 0xF8FF;
}

// The converter takes three control characters for one another; here every byte below 0x80 is the
// character of the same number.
constexpr char16_t corrected(char16_t decoded)
{
    if (isVendorCharacter(decoded))
        return static_cast<char16_t>(kReplacementCharacter);
    switch (decoded) {
    case 0x1A:
        return 0x7F;
    case 0x1C:
        return 0x1A;
    case 0x7F:
        return 0x1C;
    default:
        return decoded;
    }
}

struct Close {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

using Converter = std::unique_ptr<UConverter, Close>;

// Left alone, the converter would put a control character for some of them.
void replaceMeaningless(const void*, UConverterToUnicodeArgs* args, const char*, int32_t,
                        UConverterCallbackReason reason, UErrorCode* status)
{
    if (reason > UCNV_IRREGULAR)
        return; // not a conversion
    constexpr auto replacement = static_cast<char16_t>(kReplacementCharacter);
    *status = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(args, &replacement, 1, 0, status);
}

Converter openConverter()
{
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(kConverter, &status));
    if (!converter || U_FAILURE(status))
        qFatal("The conversion data of ICU cannot be loaded: %s", u_errorName(status));
    ucnv_setFallback(converter.get(), false);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &status);
    ucnv_setToUCallBack(converter.get(), replaceMeaningless, nullptr, nullptr, nullptr, &status);
    return converter;
}

// The one or two bytes of each character as a number, 0 for those that the code page lacks.
class Codes {
public:
    Codes()
    {
        const Converter converter = openConverter();
        for (std::size_t c = 0; c < m_codes.size(); ++c)
            m_codes[c] = c < 0x80 ? static_cast<std::uint16_t>(c) : code(*converter, c);
        for (const Twin& twin : kTwins)
            m_codes[twin.character] = m_codes[twin.inCodePage];
    }

    std::uint16_t of(char32_t c) const { return c <= 0xFFFF ? m_codes[c] : 0; }
    bool has(char32_t c) const { return c == 0 || of(c) != 0; }

private:
    static std::uint16_t code(UConverter& converter, std::size_t c)
    {
        if (isSurrogate(static_cast<char32_t>(c)) || isVendorCharacter(c))
            return 0;
        const auto unit = static_cast<char16_t>(c);
        char bytes[8] = {};
        UErrorCode status = U_ZERO_ERROR;
        const int length = ucnv_fromUChars(&converter, bytes, sizeof bytes, &unit, 1, &status);
        if (U_FAILURE(status) || length < 1 || length > 2)
            return 0;
        const auto first = static_cast<unsigned char>(bytes[0]);
        const auto second = static_cast<unsigned char>(bytes[1]);
        return static_cast<std::uint16_t>(length == 1 ? first : first << 8 | second);
    }

    std::array<std::uint16_t, 0x10000> m_codes{};
};

const Codes& codes()
{
    static const Codes table;
    return table;
}

} // namespace

qsizetype cp932Length(QStringView text)
{
    qsizetype length = 0;
    const auto view = utf16View(text);
    for (std::size_t i = 0; i < view.size();)
        length += codes().of(takeCodePoint(view, i)) > 0xFF ? 2 : 1;
    return length;
}

std::optional<qsizetype> firstOutsideCp932(QStringView text)
{
    const auto view = utf16View(text);
    for (std::size_t i = 0; i < view.size();) {
        const std::size_t at = i;
        if (!codes().has(takeCodePoint(view, i)))
            return static_cast<qsizetype>(at);
    }
    return std::nullopt;
}

QByteArray toCp932(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size() * 2);
    const auto view = utf16View(text);
    for (std::size_t i = 0; i < view.size();) {
        const char32_t c = takeCodePoint(view, i);
        const std::uint16_t code = codes().has(c) ? codes().of(c) : '?';
        if (code > 0xFF)
            bytes += static_cast<char>(code >> 8);
        bytes += static_cast<char>(code & 0xFF);
    }
    return bytes;
}

QString fromCp932(QByteArrayView bytes)
{
    thread_local const Converter converter = openConverter();
    // Every byte gives one unit at most.
    std::u16string decoded(static_cast<std::size_t>(bytes.size()) + 1, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    const int length =
        ucnv_toUChars(converter.get(), decoded.data(), static_cast<int>(decoded.size()),
                      bytes.data(), static_cast<int>(bytes.size()), &status);
    decoded.resize(static_cast<std::size_t>(qMax(length, 0)));
    for (char16_t& unit : decoded)
        unit = corrected(unit);
    return toQString(decoded);
}

} // namespace text
