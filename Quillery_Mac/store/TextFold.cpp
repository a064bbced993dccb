// SPDX-License-Identifier: MIT
// A text is folded character by character through a table that fills itself on the way: the
// libraries' own functions take some hundred nanoseconds for each character, which is seconds for a
// full library.
#include "Quillery_Mac/store/TextFold.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;
constexpr std::size_t kPageSize = 256;

const icu::Normalizer2 &compatibilityDecomposition()
{
    UErrorCode error = U_ZERO_ERROR;
    return *icu::Normalizer2::getNFKDInstance(error);
}

const icu::Normalizer2 &composition()
{
    UErrorCode error = U_ZERO_ERROR;
    return *icu::Normalizer2::getNFCInstance(error);
}

icu::UnicodeString normalized(const icu::Normalizer2 &form, const icu::UnicodeString &text)
{
    UErrorCode error = U_ZERO_ERROR;
    return form.normalize(text, error);
}

// An accent: a mark that leaves the letter the same. Not the marks that make another letter: nukta
// (combining class 7), kana voicing (8), virama (9).
bool isAccent(UChar32 character)
{
    const int combiningClass = u_getCombiningClass(character);
    return u_charType(character) == U_NON_SPACING_MARK &&
           u_hasBinaryProperty(character, UCHAR_DIACRITIC) &&
           (combiningClass < 7 || combiningClass > 9);
}

icu::UnicodeString withoutAccents(const icu::UnicodeString &text)
{
    icu::UnicodeString result;
    for (int at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
        const UChar32 character = text.char32At(at);
        if (!isAccent(character) &&
            !u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT))
            result.append(character);
    }
    return result;
}

QByteArray composed(const QByteArray &utf8)
{
    const icu::StringPiece bytes(utf8.constData(), static_cast<int32_t>(utf8.size()));
    std::string result;
    normalized(composition(), icu::UnicodeString::fromUTF8(bytes)).toUTF8String(result);
    return QByteArray::fromStdString(result);
}

void append(const std::string &text, QByteArray &result)
{
    result.append(text.data(), static_cast<qsizetype>(text.size()));
}

bool isTurkic(const QLocale &locale)
{
    return locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani;
}

// Where the run of ASCII characters, or of others, that begins at `at` ends.
qsizetype endOfRun(QByteArrayView bytes, qsizetype at, bool isAscii)
{
    while (at < bytes.size() && (static_cast<unsigned char>(bytes[at]) < 0x80) == isAscii)
        ++at;
    return at;
}

} // namespace

class TextFold::Table
{
public:
    struct Entry
    {
        std::string text;
        bool mayJoin = false; ///< in composed text, with the character before it
    };

    explicit Table(bool isTurkic)
        : m_caseRule(isTurkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT)
    {
        for (char32_t character = 0; character < m_ascii.size(); ++character) {
            const std::string &text = at(character).text;
            m_ascii[character] = text.front();
            m_hasLongAscii = m_hasLongAscii || text.size() > 1;
        }
    }

    // Whether an ASCII character folds to more than one byte, as "I" does in Turkish.
    bool hasLongAscii() const { return m_hasLongAscii; }
    char ascii(char byte) const { return m_ascii[static_cast<unsigned char>(byte)]; }

    const Entry &at(char32_t character)
    {
        auto &page = m_pages[character / kPageSize];
        if (!page)
            page = makePage(character / kPageSize * kPageSize);
        return (*page)[character % kPageSize];
    }

private:
    using Page = std::array<Entry, kPageSize>;

    std::unique_ptr<Page> makePage(std::size_t firstCharacter) const
    {
        auto page = std::make_unique<Page>();
        for (std::size_t i = 0; i < kPageSize; ++i)
            (*page)[i] = foldedCharacter(static_cast<UChar32>(firstCharacter + i));
        return page;
    }

    Entry foldedCharacter(UChar32 character) const
    {
        icu::UnicodeString text(character);
        text.foldCase(m_caseRule);
        text = withoutAccents(normalized(compatibilityDecomposition(), text));
        text.foldCase(m_caseRule);
        text = normalized(composition(), text);
        Entry entry;
        text.toUTF8String(entry.text);
        entry.mayJoin = !text.isEmpty() && !composition().hasBoundaryBefore(text.char32At(0));
        return entry;
    }

    uint32_t m_caseRule;
    bool m_hasLongAscii = false;
    std::array<char, 0x80> m_ascii{};
    std::array<std::unique_ptr<Page>, (kLastCharacter + 1) / kPageSize> m_pages;
};

TextFold::TextFold(const QLocale &locale)
    : m_table(std::make_unique<Table>(isTurkic(locale)))
{
}

TextFold::~TextFold() = default;

QByteArray TextFold::foldedUtf8(QByteArrayView utf8)
{
    QByteArray result;
    result.reserve(utf8.size());
    bool mayJoin = false;
    qsizetype at = 0;
    while (at < utf8.size()) {
        const qsizetype asciiEnd = endOfRun(utf8, at, true);
        appendAscii(utf8.sliced(at, asciiEnd - at), result);
        at = endOfRun(utf8, asciiEnd, false);
        mayJoin = appendOthers(utf8.sliced(asciiEnd, at - asciiEnd), result) || mayJoin;
    }
    return mayJoin ? composed(result) : result;
}

void TextFold::appendAscii(QByteArrayView ascii, QByteArray &result) const
{
    if (!m_table->hasLongAscii()) {
        const qsizetype size = result.size();
        result.resize(size + ascii.size());
        std::transform(ascii.begin(), ascii.end(), result.data() + size,
                       [this](char byte) { return m_table->ascii(byte); });
        return;
    }
    for (const char byte : ascii)
        append(m_table->at(static_cast<unsigned char>(byte)).text, result);
}

bool TextFold::appendOthers(QByteArrayView utf8, QByteArray &result) const
{
    bool mayJoin = false;
    const QString text = QString::fromUtf8(utf8);
    // Decoded text has no half of a pair alone.
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair = text[at].isHighSurrogate();
        const char32_t character =
            isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode();
        at += isPair ? 1 : 0;
        const Table::Entry &entry = m_table->at(character);
        append(entry.text, result);
        mayJoin = mayJoin || entry.mayJoin;
    }
    return mayJoin;
}
