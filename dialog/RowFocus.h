/// The keyboard in a view whose rows are widgets with buttons.
#pragma once

#include <QAbstractItemView>
#include <QPointer>

class QFocusEvent;
class QKeyEvent;

namespace newpro {

/// Makes such a view one stop of Tab. The keys of the view move a ring from row to row; Enter
/// presses the first button of the row with the ring, Alt+Down or the menu key opens the menu of
/// its other one, and Tab goes on to its buttons. A button of any other row is no stop.
class RowFocus : public QObject {
    Q_OBJECT
  public:
    /// @param view its owner. Its selection model must be there.
    explicit RowFocus(QAbstractItemView* view);
    /// @return that of a view; null where it has none.
    static RowFocus* of(const QAbstractItemView* view);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool isOver() const;
    QWidget* currentRow() const;
    void takeRow();
    void offer(QWidget* row);
    void showRing();
    void bringIntoSight() const;
    void announce() const;
    void focusIn(Qt::FocusReason reason);
    void follow(const QWidget* focus);
    bool keyPressed(bool onView, QKeyEvent* event);
    void press();
    void openMenu();

    QAbstractItemView* view;
    QPointer<QWidget> offered;  ///< The row whose buttons are stops of Tab.
    QPointer<QWidget> ring;
    bool focused = false;  ///< The view itself has the focus,
    bool byKey = false;    ///< and it came by key, so that it has to be seen.
    bool inside = false;   ///< The view or one of its buttons has the focus.
};

}  // namespace newpro
