#include "workbench/app/PinyinSearch.h"

#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <QVector>
#include <algorithm>

namespace workbench {

namespace {

bool isHan(char32_t character) {
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(UChar32(character), &status) == USCRIPT_HAN && U_SUCCESS(status);
}

bool isLatin(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

}  // namespace

class PinyinSearch::Reader {
  public:
    Reader() {
        UErrorCode status = U_ZERO_ERROR;
        rules.reset(icu::Transliterator::createInstance("Han-Latin; Latin-ASCII; Lower",
                                                        UTRANS_FORWARD, status));
        if (U_FAILURE(status)) rules.reset();  // without its data ICU has no sounds
    }
    QString read(char32_t character) const {
        if (!rules) return {};
        icu::UnicodeString text(UChar32{int32_t(character)});
        rules->transliterate(text);
        return QString::fromUtf16(text.getBuffer(), text.length());
    }

  private:
    std::unique_ptr<icu::Transliterator> rules;
};

PinyinSearch::PinyinSearch() = default;
PinyinSearch::~PinyinSearch() = default;
PinyinSearch::PinyinSearch(PinyinSearch&&) noexcept = default;

bool PinyinSearch::finds(const QString& words, const QString& text) {
    const QStringList parts = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return std::all_of(parts.begin(), parts.end(), [&](const QString& part) {
        if (text.contains(part, Qt::CaseInsensitive)) return true;
        if (!isLatin(part)) return false;
        const Sounds& sounds = soundsOf(text);
        return sounds.whole.contains(part, Qt::CaseInsensitive) ||
               sounds.initials.contains(part, Qt::CaseInsensitive);
    });
}

const PinyinSearch::Sounds& PinyinSearch::soundsOf(const QString& text) {
    const auto found = known.constFind(text);
    if (found != known.constEnd()) return *found;
    Sounds sounds;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        const QString sound = soundOf(character);
        sounds.whole += sound;
        sounds.initials += isHan(character) ? sound.left(1) : sound;
    }
    return *known.insert(text, sounds);
}

QString PinyinSearch::soundOf(char32_t character) {
    if (!isHan(character)) return QString::fromUcs4(&character, 1);
    QString& sound = read[character];
    if (sound.isEmpty()) {
        if (!reader) reader = std::make_unique<Reader>();
        sound = reader->read(character);
    }
    return sound;
}

}  // namespace workbench
