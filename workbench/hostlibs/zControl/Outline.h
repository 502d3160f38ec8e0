/// The thin rounded border of a frameless window.
#pragma once

#include <QWidget>

namespace workbench {

constexpr double kDialogRadius = 8;

/// Lies over everything else in its parent, follows the parent's size, and covers the border only.
class Outline : public QWidget {
  public:
    explicit Outline(QWidget* window);
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void fit();

    int line = 0;  ///< Width of the border that the mask leaves, pixels.
};

}  // namespace workbench
