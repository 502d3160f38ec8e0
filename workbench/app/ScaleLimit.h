/// Keeps the scale at what the screen holds.
#pragma once

#include <QObject>
#include <QSize>

class QWidget;

namespace workbench {

/// Watches the screen of a window and the host's scale. A scale at which the new-project dialog
/// would reach beyond the screen gives way to the largest one offered that fits, and comes back
/// when the window is on a screen that holds it.
class ScaleLimit : public QObject {
    Q_OBJECT
  public:
    explicit ScaleLimit(QWidget* window);

    /// The scale that somebody asked for, whether it fits or not.
    double wanted() const { return asked; }
    /// @return what to tell a person; empty while the scale is the wanted one and the dialog fits.
    QString notice() const;
    /// Takes this for the room of the screen. @param available pixels.
    void fit(const QSize& available);

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// There is another notice, or none any more.
    void changed();

  private:
    void followScreen();
    void apply();

    QWidget* window;
    double asked;
    QSize room;  ///< Of the screen.
    bool applying = false;
};

}  // namespace workbench
