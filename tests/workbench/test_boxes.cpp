/// Boxes are put together from cached corners, and have to look as if drawn as one path.
#include <QPainter>
#include <cstring>

#include "tests/support/Looks.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/Style.h"

namespace {

using testing_support::Look;

/// What is drawn as one rounded box, and how.
struct Boxed {
    int type;
    workbench::Tint border;
    double radius;
};

constexpr Boxed card = {workbench::CardType, workbench::Tint::Line, 6};
constexpr Boxed buttons[] = {{workbench::PlainType, workbench::Tint::Border, 4},
                             {workbench::DefaultActionType, workbench::Tint::AccentLine, 4},
                             {workbench::NewButtonType, workbench::Tint::AccentLine, 4},
                             {workbench::SplitPartType, workbench::Tint::None, 3},
                             {workbench::RibbonTabType, workbench::Tint::None, 6}};
const QColor fills[] = {QColor(255, 255, 255), QColor(20, 90, 200), QColor(200, 30, 60, 120),
                        QColor(0, 0, 0, 0)};

class Boxes : public testing::Test {
  protected:
    static QImage paper(const QSize& size) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        return image;
    }
    static QImage painted(QWidget& widget) {
        QImage image = paper(widget.size());
        widget.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }
    /// @return the box drawn as one path.
    static QImage drawn(const Boxed& box, const QSize& size, const QRect& rect,
                        const QColor& fill) {
        const QColor border = workbench::colour(box.border);
        const int line = border.alpha() ? qMax(1, workbench::scaled(1)) : 0;
        const qreal inset = line / 2.0;
        const qreal radius = workbench::scaled(box.radius) - inset;
        QImage image = paper(size);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(line ? QPen(border, line) : QPen(Qt::NoPen));
        painter.setBrush(fill);
        painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), radius,
                                radius);
        return image;
    }
    /// @return the largest difference of a channel, of 255.
    static int difference(const QImage& one, const QImage& other) {
        int largest = 0;
        for (int y = 0; y < one.height(); ++y) {
            const uchar* a = one.constScanLine(y);
            const uchar* b = other.constScanLine(y);
            const int bytes = 4 * one.width();
            if (std::memcmp(a, b, size_t(bytes)) == 0) continue;
            for (int i = 0; i < bytes; ++i) largest = qMax(largest, qAbs(a[i] - b[i]));
        }
        return largest;
    }
    /// Calls `look` with sizes from three to sixty pixels, all of those that are about as large as
    /// corners, and with every fill.
    template <typename LookAt>
    static void forEachSize(LookAt look) {
        for (int length = 3; length <= 60; length += length < 24 ? 1 : 4) {
            for (int other : {3, 7, 13, 24, 60}) {
                for (const QColor& fill : fills) {
                    look(QSize(length, other), fill);
                    look(QSize(other, length), fill);
                }
            }
        }
    }
    static void expectAsDrawn(QWidget& widget, const Boxed& box, const QRect& rect,
                              const QColor& fill) {
        const int found = difference(painted(widget), drawn(box, widget.size(), rect, fill));
        EXPECT_LE(found, 16) << "type " << box.type << ", " << widget.width() << "x"
                             << widget.height() << ", " << fill.name(QColor::HexArgb).toStdString();
    }

    testing_support::TemporaryInstallation host;
};

TEST_F(Boxes, OfCardsLookAsIfDrawnAsOnePath) {
    for (const Look& look : testing_support::allLooks()) {
        SCOPED_TRACE(testing::PrintToString(look));
        testing_support::wear(look);
        zBaseWidget widget(nullptr, card.type);
        const int gap = workbench::scaled(2);
        forEachSize([&](const QSize& size, const QColor& fill) {
            widget.resize(size + QSize(0, 2 * gap));
            widget.setNormalBackColor(fill);
            expectAsDrawn(widget, card, widget.rect().adjusted(0, gap, 0, -gap), fill);
        });
    }
}

TEST_F(Boxes, OfButtonsLookAsIfDrawnAsOnePath) {
    for (const Look& look : testing_support::allLooks()) {
        SCOPED_TRACE(testing::PrintToString(look));
        testing_support::wear(look);
        for (const Boxed& box : buttons) {
            zBaseButton button;
            button.setControlType(box.type);
            forEachSize([&](const QSize& size, const QColor& fill) {
                button.resize(size);
                button.setNormalBackColor(fill);
                expectAsDrawn(button, box, button.rect(), fill);
            });
        }
    }
}

}  // namespace
