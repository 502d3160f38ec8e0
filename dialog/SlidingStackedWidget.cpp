#include "dialog/SlidingStackedWidget.h"

#include <QGraphicsOpacityEffect>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QScopeGuard>

#include "core/guard.h"

SlidingStackedWidget::SlidingStackedWidget(QWidget* parent)
    : QStackedWidget(parent), mainwindow(parent ? parent : this) {}

void SlidingStackedWidget::setSpeed(int milliseconds) {
    speed = milliseconds;
}

void SlidingStackedWidget::setAnimation(QEasingCurve::Type easing) {
    animationtype = easing;
}

void SlidingStackedWidget::setVerticalMode(bool on) {
    vertical = on;
}

void SlidingStackedWidget::setWrap(bool on) {
    wrap = on;
}

bool SlidingStackedWidget::slideInNext() {
    if (!wrap && currentIndex() >= count() - 1) return false;
    slideInIdx(currentIndex() + 1);
    return true;
}

bool SlidingStackedWidget::slideInPrev() {
    if (!wrap && currentIndex() < 1) return false;
    slideInIdx(currentIndex() - 1);
    return true;
}

void SlidingStackedWidget::slideInIdx(int idx, t_direction direction) {
    if (count() == 0) return;
    if (idx > count() - 1) {
        direction = vertical ? TOP2BOTTOM : RIGHT2LEFT;
        idx %= count();
    } else if (idx < 0) {
        direction = vertical ? BOTTOM2TOP : LEFT2RIGHT;
        idx = (idx + count()) % count();
    }
    slideInWgt(widget(idx), direction);
}

void SlidingStackedWidget::slideInWgt(QWidget* widget, t_direction direction) {
    if (active) return;
    active = true;
    const bool started = newpro::guardedOr("SlidingStackedWidget", false,
                                           [&] { return slideTo(widget, direction); });
    if (!started) active = false;
}

/// @return whether there was a slide to start; with speed 0 it has ended by then.
bool SlidingStackedWidget::slideTo(QWidget* widget, t_direction direction) {
    now = currentIndex();
    next = indexOf(widget);
    if (now == next || next < 0 || now < 0) return false;
    if (direction == AUTOMATIC) {
        if (now < next) {
            direction = vertical ? TOP2BOTTOM : RIGHT2LEFT;
        } else {
            direction = vertical ? BOTTOM2TOP : LEFT2RIGHT;
        }
    }
    startSlide(currentWidget(), widget, offsetOf(direction));
    return true;
}

QPoint SlidingStackedWidget::offsetOf(t_direction direction) const {
    const QSize size = frameRect().size();
    switch (direction) {
        case LEFT2RIGHT:
            return {size.width(), 0};
        case RIGHT2LEFT:
            return {-size.width(), 0};
        case TOP2BOTTOM:
            return {0, size.height()};
        case BOTTOM2TOP:
            return {0, -size.height()};
        case AUTOMATIC:
            break;
    }
    return {};
}

void SlidingStackedWidget::startSlide(QWidget* leaving, QWidget* coming, const QPoint& offset) {
    coming->setGeometry(QRect(QPoint(0, 0), frameRect().size()));
    const QPoint target = coming->pos();
    pnow = leaving->pos();
    coming->move(target - offset);
    coming->show();
    coming->raise();

    // Deliberately not `target - offset`: in a vertical slide the coming page starts on the side to
    // which the leaving page goes. It would come from the other side.
    const QPoint start(target.x() - offset.x(), target.y() + offset.y());
    auto* animations = new QParallelAnimationGroup(this);
    animations->addAnimation(slide(leaving, pnow, pnow + offset));
    animations->addAnimation(slide(coming, start, target));
    animations->addAnimation(fade(leaving, 1.0, 0.0));
    animations->addAnimation(fade(coming, 0.0, 1.0));
    connect(animations, &QParallelAnimationGroup::finished, this,
            &SlidingStackedWidget::animationDoneSlot);
    // Last: a group of duration 0 finishes in here.
    animations->start(QAbstractAnimation::DeleteWhenStopped);
}

QAbstractAnimation* SlidingStackedWidget::slide(QWidget* page, const QPoint& from,
                                                const QPoint& to) {
    auto* animation = new QPropertyAnimation(page, "pos");
    animation->setDuration(speed);
    animation->setEasingCurve(animationtype);
    animation->setStartValue(from);
    animation->setEndValue(to);
    return animation;
}

QAbstractAnimation* SlidingStackedWidget::fade(QWidget* page, qreal from, qreal to) {
    auto* effect = new QGraphicsOpacityEffect(page);
    effect->setOpacity(from);
    page->setGraphicsEffect(effect);
    auto* animation = new QPropertyAnimation(effect, "opacity");
    animation->setDuration(speed / 2);
    animation->setStartValue(from);
    animation->setEndValue(to);
    connect(animation, &QPropertyAnimation::finished, effect, &QObject::deleteLater);
    return animation;
}

void SlidingStackedWidget::animationDoneSlot() {
    newpro::guarded("SlidingStackedWidget", [this] {
        {
            // Whatever a receiver of currentChanged throws, the stack takes the next request.
            const auto done = qScopeGuard([this] { active = false; });
            QWidget* leaving = widget(now);
            setCurrentIndex(next);
            if (leaving) {
                leaving->hide();
                leaving->move(pnow);
            }
        }
        Q_EMIT animationFinished(next);
    });
}
