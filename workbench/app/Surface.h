/// The language of the workbench's own window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTranslator>
#include <QVariant>
#include <QVector>

namespace workbench {

enum class Language { Chinese, English };

/// Qt's own texts, but for the reasons of files: these stand in messages that are the same in a
/// terminal, in a file and in any other language.
class QtTexts : public QTranslator {
  public:
    QString translate(const char* context, const char* text, const char* disambiguation,
                      int number) const override;
};

/// What the window says. Its texts are written in Chinese where they are used, and surfaceTexts.cpp
/// has the English of each. The dialog, and what the host shows over it, stays Chinese.
class Surface : public QObject {
    Q_OBJECT
  public:
    static Surface& instance();

    Language language() const { return current; }
    void setLanguage(Language language);
    /// From now on the fixed texts of a widget, and of all that is in it, follow the language. A
    /// text that changes later by itself is left to whoever changes it. So do Qt's own texts, such
    /// as the menus of text fields, where its translations are installed.
    void adopt(QWidget* root);

  Q_SIGNALS:
    void languageChanged();

  private:
    struct Place {
        QPointer<QObject> object;
        QByteArray property;  ///< Empty: the text of a combo box's entry.
        int entry;
        QString chinese;
        QString shown;
    };
    void take(QObject* object, const QByteArray& property, int entry = -1);
    void show(Place& place) const;
    void translateQt();

    QtTexts qtTexts;
    Language current = Language::Chinese;
    QVector<Place> places;
};

/// @return a text of the window in its language; the text itself where no other is known.
QString said(const QString& chinese);
QString said(const char* chinese);  ///< In UTF-8.

/// @return the languages by the words that settings keep, in the order of their values.
QStringList languageWords();
/// @return the language for a person of this locale: Chinese, unless the locale names another one.
Language languageOf(const QLocale& locale);

/// @return the English of a Chinese text of the window; null where the table has none.
const char* englishOf(const QString& chinese);

}  // namespace workbench
