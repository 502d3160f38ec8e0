/// What the application takes from the skin, and the widget style of all skins.
#pragma once

#include <QProxyStyle>
#include <QStyleOption>

#include "workbench/base/WorkbenchApi.h"

class QScrollBar;

namespace workbench {

/// Gives the application the font, palette and styles of the current skin and scale. Call it once
/// when the application exists; it then follows Host::setSkin and Host::setScale.
WORKBENCH_API void applySkin();

/// Lets the application follow the host's skin and scale, ahead of all that hear of them later.
void followHost();

/// Fusion at the host's scale, with flat scroll bars, list rows and headers. It is a style and not
/// a style sheet of the application, because under a sheet a widget that moves to another parent
/// loses the font weight that was set on it.
class SkinStyle : public QProxyStyle {
  public:
    SkinStyle();

    /// Gives a scroll bar its flat look in the current skin and scale.
    static void dress(QScrollBar& bar);

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& picture,
                                const QStyleOption* option) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;

  private:
    bool drawCutItem(const QStyleOptionViewItem& item, QPainter& painter,
                     const QWidget* widget) const;
};

}  // namespace workbench
