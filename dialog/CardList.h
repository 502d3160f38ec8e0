/// A list that shows nothing but the cards in its rows.
#pragma once

#include <QListWidget>

namespace newpro {

/// Cannot be selected, focused or scrolled; as high as its rows by what its owner sets.
class CardList : public QListWidget {
    Q_OBJECT
  public:
    /// @param name object name. @param style style sheet of the list.
    CardList(const char* name, const QString& style, QWidget* parent);

  protected:
    bool viewportEvent(QEvent* event) override;
};

}  // namespace newpro
