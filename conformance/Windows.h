/// Windows of the host that open while a promise is looked at.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QStringList>
#include <QTimer>

namespace conformance {

/// Closes every modal window and pop-up that opens during its life, and remembers them by class.
class Closer {
  public:
    Closer() {
        QObject::connect(&timer, &QTimer::timeout, [this] { closeOne(); });
        timer.start(10);  // milliseconds
    }

    const QStringList& closed() const { return names; }

  private:
    void closeOne() {
        QWidget* window = QApplication::activePopupWidget();
        if (!window) window = QApplication::activeModalWidget();
        if (!window) return;
        names += QLatin1String(window->metaObject()->className());
        if (auto* dialog = qobject_cast<QDialog*>(window)) {
            dialog->reject();
        } else {
            window->close();
        }
    }

    QTimer timer;
    QStringList names;
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
