/// The sign that a row has the keyboard.
#pragma once

#include <QWidget>

namespace newpro {

/// Lies over a row's widget, as large as it is, and lets the mouse through. The style draws it.
class FocusRing : public QWidget {
    Q_OBJECT
  public:
    explicit FocusRing(QWidget* row);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace newpro
