/// Finds Chinese texts by their sound.
#pragma once

#include <QHash>
#include <QString>
#include <memory>

namespace workbench {

/// A text is found by any part of it, by a part of its pinyin ("jiaoxue" in 教学楼), and by the
/// initials of that ("jxl"). Letter case does not matter. A character of several sounds has its
/// most common one.
class PinyinSearch {
  public:
    PinyinSearch();
    ~PinyinSearch();
    PinyinSearch(PinyinSearch&&) noexcept;

    /// @param words each must be found, in any order; spaces part them.
    /// @return whether the text is found.
    bool finds(const QString& words, const QString& text);

  private:
    struct Sounds {
        QString whole;
        QString initials;
    };
    const Sounds& soundsOf(const QString& text);
    QString soundOf(char32_t character);

    class Reader;
    std::unique_ptr<Reader>
        reader;  ///< Made at the first question that needs it: it takes a while.
    QHash<uint, QString> read;
    QHash<QString, Sounds> known;
};

}  // namespace workbench
