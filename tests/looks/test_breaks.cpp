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

/// The dialogs. The main window's parts are as wide as a person makes them.
std::vector<Page> dialogs() {
    std::vector<Page> found;
    for (const Page& page : allPages())
        if (page.name != std::string("mainWindow")) found.push_back(page);
    return found;
}

class Wrapping : public testing::TestWithParam<Page> {
  protected:
    SampleHost host;
};

TEST_P(Wrapping, IsTheSameAtEveryScale) {
    QStringList design;
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        workbench::Host::instance().setScale(scale);
        const std::unique_ptr<QWidget> window = GetParam().open();
        QStringList texts;
        for (const auto* label : window->findChildren<QLabel*>())
            if (label->isVisible() && label->wordWrap()) texts.append(brokenText(*label));
        if (scale == 1) design = texts;
        EXPECT_EQ(texts, design) << scale;
    }
}

std::string nameOfWrapped(const testing::TestParamInfo<Page>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Looks, Wrapping, testing::ValuesIn(dialogs()), nameOfWrapped);

}  // namespace
