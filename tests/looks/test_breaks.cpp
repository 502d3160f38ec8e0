/// Texts of several lines break at the same places at every scale.
#include <QLabel>
#include <QTextLayout>

#include "tests/looks/EveryWindow.h"

namespace {

using namespace looks_tests;

/// @return the lines that a label breaks its text into.
QString brokenText(const QLabel& label) {
    QTextLayout layout(label.text(), label.font());
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(label.contentsRect().width());
        lines.append(label.text().mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines.join(QLatin1Char('\n'));
}

/// @return what is seen of several lines in a window.
QStringList brokenTexts(const QWidget* window) {
    QStringList texts;
    for (const auto* label : window->findChildren<QLabel*>())
        if (label->isVisible() && label->wordWrap()) texts.append(brokenText(*label));
    return texts;
}

TEST(Wrapping, IsTheSameAtEveryScale) {
    const SampleHost host;
    int texts = 0;
    for (const Page& page : allPages()) {
        // Its parts are as wide as a person makes them.
        if (page.name == std::string("mainWindow")) continue;
        workbench::Host::instance().setScale(1);
        const QStringList design = brokenTexts(page.open().get());
        texts += design.size();
        for (const double scale : {1.25, 1.5, 1.75, 2.0, 3.0}) {
            if (design.isEmpty()) break;
            workbench::Host::instance().setScale(scale);
            EXPECT_EQ(brokenTexts(page.open().get()), design) << page.name << " at " << scale;
        }
    }
    EXPECT_GT(texts, 3);
}

}  // namespace
