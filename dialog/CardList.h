/// A list that shows nothing but the cards in its rows.
#pragma once

#include <QListWidget>

namespace newpro {

/// Cannot be selected. Whoever holds it gives it the height of its rows and scrolls it. It is one
/// stop of Tab; see RowFocus. A card that waits for sight is shown as soon as its row is there.
class CardList : public QListWidget {
    Q_OBJECT
  public:
    /// @param name object name. @param style style sheet of the list.
    CardList(const char* name, const QString& style, QWidget* parent);

    /// @return what all rows together need, pixels; 0 without rows.
    int rowsHeight() const;
    /// @return the height of each row, pixels; 0 without rows.
    int rowHeight() const;

    /// Shows the cards of the rows that are in sight. Call when rows have come, or the list has
    /// been scrolled.
    void showCardsInSight();

  protected:
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

  protected Q_SLOTS:
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void updateEditorGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    void showCards(const QRect& part);
    QRect inSight() const;
    int rowsInSight() const;

    bool filling = false;  ///< A row comes, and all are laid out later.
};

}  // namespace newpro
