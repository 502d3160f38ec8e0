/// The button that empties a field of search. Not Qt's own: the animation in which that one appears
/// belongs to nobody, and stays behind when its window goes meanwhile.
#pragma once

#include <QAction>
#include <QLineEdit>
#include <QStyle>

namespace workbench {

inline void addClearAction(QLineEdit* field) {
    QAction* clear = field->addAction(field->style()->standardIcon(QStyle::SP_LineEditClearButton),
                                      QLineEdit::TrailingPosition);
    clear->setText(QStringLiteral("清空"));
    clear->setVisible(false);
    QObject::connect(clear, &QAction::triggered, field, &QLineEdit::clear);
    QObject::connect(field, &QLineEdit::textChanged, clear,
                     [clear](const QString& text) { clear->setVisible(!text.isEmpty()); });
}

}  // namespace workbench
