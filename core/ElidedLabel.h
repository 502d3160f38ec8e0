/// A label of one line that never asks for more width than it gets.
#pragma once

#include "zBaseControl.h"

namespace newpro {

/// Shortens a text at its end, as QFontMetrics::elidedText does, but at a cost that grows with the
/// width and not with the text. @param width pixels.
QString elidedAtEnd(const QFontMetrics& metrics, const QString& text, int width);

/// Keeps its text whole and shortens only what it paints. Plain text. Can be as low as its glyphs:
/// three lines and a button share one row of a list.
class ElidedLabel : public zBaseLabel {
    Q_OBJECT
  public:
    /// @param dots where the dots stand: at the right for sentences, in the middle for paths.
    ElidedLabel(const QString& text, Qt::TextElideMode dots, QWidget* parent);
    /// @return the text's size where the size policy is Fixed, else the height of a line alone.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::TextElideMode mode;
};

}  // namespace newpro
