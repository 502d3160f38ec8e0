/// A list that shows nothing but the cards in its rows.
#pragma once

#include <QListWidget>

namespace newpro {

/// Cannot be selected, focused or scrolled: whoever holds it gives it the height of its rows.
class CardList : public QListWidget {
    Q_OBJECT
  public:
    /// @param name object name. @param style style sheet of the list.
    CardList(const char* name, const QString& style, QWidget* parent);

    /// @return what all rows together need, pixels; 0 without rows.
    int rowsHeight() const;

  protected:
    bool viewportEvent(QEvent* event) override;
};

}  // namespace newpro
