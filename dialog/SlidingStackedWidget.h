/// A stack that changes pages with a slide and a cross-fade.
#pragma once

#include <QEasingCurve>
#include <QPoint>
#include <QStackedWidget>

class QAbstractAnimation;

/// Requests made while a slide runs are dropped. With speed 0 a slide ends inside the call.
class SlidingStackedWidget : public QStackedWidget {
    Q_OBJECT
  public:
    enum t_direction { LEFT2RIGHT, RIGHT2LEFT, TOP2BOTTOM, BOTTOM2TOP, AUTOMATIC };
    Q_ENUM(t_direction)

    explicit SlidingStackedWidget(QWidget* parent = nullptr);

  public Q_SLOTS:
    /// @param milliseconds duration of a slide.
    void setSpeed(int milliseconds);
    void setAnimation(QEasingCurve::Type easing);
    void setVerticalMode(bool on);
    /// @param on whether slideInNext and slideInPrev go on past the ends.
    void setWrap(bool on);
    /// @return false where there is no further page and no wrap.
    bool slideInNext();
    bool slideInPrev();
    /// @param idx page; one beyond the ends is taken round by one turn.
    void slideInIdx(int idx, SlidingStackedWidget::t_direction direction = AUTOMATIC);
    /// @param widget a page of this stack; any other, or null, changes nothing.
    void slideInWgt(QWidget* widget, SlidingStackedWidget::t_direction direction);

  Q_SIGNALS:
    void animationFinished(int idx);

  protected Q_SLOTS:
    void animationDoneSlot();

  private:
    bool slideTo(QWidget* widget, t_direction direction);
    QPoint offsetOf(t_direction direction) const;
    void startSlide(QWidget* leaving, QWidget* coming, const QPoint& offset);
    QAbstractAnimation* slide(QWidget* page, const QPoint& from, const QPoint& to);
    QAbstractAnimation* fade(QWidget* page, qreal from, qreal to);

    QWidget* mainwindow;  ///< Reference widget of the stack; kept, not read here.
    int speed = 300;      // milliseconds
    QEasingCurve::Type animationtype = QEasingCurve::OutQuart;
    bool vertical = false;
    int now = 0;
    int next = 0;
    bool wrap = false;
    QPoint pnow;
    bool active = false;
};
