/// Windows of the host that open while a promise is looked at.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QStringList>
#include <QTimer>

namespace conformance {

/// Closes every modal window and pop-up that opens during its life, and remembers them by class.
/// What is open before, the dialog itself, is let alone however long it takes.
class Closer {
  public:
    Closer() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible()) before += window;
        QObject::connect(&timer, &QTimer::timeout, [this] {
            QWidget* window = current();
            if (window && !before.contains(window)) meet(window);
        });
        timer.start(10);  // milliseconds
    }
    virtual ~Closer() = default;

    const QStringList& closed() const { return names; }

  protected:
    /// What to do with a window that is open.
    virtual void meet(QWidget* window) { close(window); }

    void close(QWidget* window) {
        names += QLatin1String(window->metaObject()->className());
        if (auto* dialog = qobject_cast<QDialog*>(window)) {
            dialog->reject();
        } else {
            window->close();
        }
    }

  private:
    static QWidget* current() {
        QWidget* popup = QApplication::activePopupWidget();
        return popup ? popup : QApplication::activeModalWidget();
    }

    QTimer timer;
    QVector<QPointer<QWidget>> before;
    QStringList names;
};

/// @return the fields of a window that can be typed in, as they were made.
inline QVector<QLineEdit*> fieldsOf(const QWidget* window) {
    QVector<QLineEdit*> fields;
    for (auto* field : window->findChildren<QLineEdit*>())
        if (field->isVisible() && field->isEnabled() && !field->isReadOnly()) fields += field;
    return fields;
}

/// A mouse button that goes down or up at a place of a widget.
inline void sendMouse(QWidget* widget, QEvent::Type type, const QPointF& place) {
    const bool down = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, widget->mapToGlobal(place.toPoint()), Qt::LeftButton,
                      down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

inline void clickOn(QWidget* widget) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        sendMouse(widget, type, widget->rect().center());
}

/// Posted: no timer ticks in a window that opens inside of it.
inline void pressReturn(QWidget* field) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
        QApplication::postEvent(field, new QKeyEvent(type, Qt::Key_Return, Qt::NoModifier));
}

/// Picks the first entry of the menu that opens.
class Picker : public Closer {
  public:
    /// @return whether a menu had an entry to pick.
    bool picked() const { return tried; }

  protected:
    void meet(QWidget* window) override {
        auto* menu = qobject_cast<QMenu*>(window);
        if (tried || !menu || menu->actions().isEmpty()) return close(window);
        tried = true;
        menu->setActiveAction(menu->actions().constFirst());
        pressReturn(menu);
    }

  private:
    bool tried = false;
};

/// Chooses a file as a user without a mouse would: types its path into the fields of a dialog, one
/// after the other, and presses Return. Closes what does not go away by that.
class Typist : public Closer {
  public:
    explicit Typist(const QString& file) : texts(QFileInfo(file).absoluteFilePath()) {}
    /// @param steps each of which is typed into all fields before the next.
    explicit Typist(const QStringList& steps) : texts(steps), patience(200) {}

    /// @return whether a dialog took the path.
    bool typed() const { return taken; }

  protected:
    void meet(QWidget* window) override {
        const QVector<QLineEdit*> fields = fieldsOf(window);
        if (!fields.isEmpty() && window != last) {
            last = window;  // not a box, behind which it waits
            tried = 0;
        }
        const int step = fields.isEmpty() ? 0 : tried / fields.size();
        if (fields.isEmpty() || (step >= texts.size() && --patience < 0)) return close(window);
        if (step >= texts.size()) return;
        if (auto* dialog = qobject_cast<QDialog*>(window))
            QObject::connect(dialog, &QDialog::accepted, &here, [this] { taken = true; });
        QLineEdit* field = fields[tried++ % fields.size()];
        field->setText(texts[step]);
        pressReturn(field);
    }

  private:
    const QStringList texts;
    int patience = 0;  ///< Ticks that a dialog may take after all; a cloud disk answers late.
    QPointer<QWidget> last;
    int tried = 0;
    bool taken = false;
    QObject here;  ///< The connections end with it.
};

/// Logs in as a user without a mouse would: types account and password into the first window with
/// fields, and presses Return. Closes what opens besides, and what does not go away by that.
class Applicant : public Closer {
  public:
    Applicant(const QString& account, const QString& password)
        : account(account), password(password) {}

    /// @return whether a window took what was typed.
    bool typed() const { return taken; }

  protected:
    void meet(QWidget* window) override {
        const QVector<QLineEdit*> fields = fieldsOf(window);
        auto* dialog = qobject_cast<QDialog*>(window);
        if (fields.isEmpty() || !dialog || tried) return close(window);
        tried = true;
        QObject::connect(dialog, &QDialog::accepted, &here, [this] { taken = true; });
        bool named = false;
        for (auto* field : fields) {
            const bool hidden = field->echoMode() != QLineEdit::Normal;
            if (hidden || !named) field->setText(hidden ? password : account);
            named = named || !hidden;
        }
        pressReturn(fields.last());
    }

  private:
    const QString account, password;
    bool tried = false;
    bool taken = false;
    QObject here;  ///< The connection ends with it.
};

/// Clicks the button with a text in the next modal window, as soon as it is there.
class Clicker {
  public:
    explicit Clicker(const QString& text) {
        QObject::connect(&timer, &QTimer::timeout, [text] {
            const QWidget* window = QApplication::activeModalWidget();
            if (!window) return;
            for (auto* button : window->findChildren<QAbstractButton*>())
                if (button->text().remove(QLatin1Char('&')) == text && button->isVisible())
                    return button->click();
        });
        timer.start(10);  // milliseconds
    }

  private:
    QTimer timer;
};

/// Lets everything happen that is under way.
inline void settle() {
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace conformance
