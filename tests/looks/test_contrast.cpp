/// Whether what is drawn can be made out and told apart, from the skins' colours and from pictures.
#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QPainter>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

#include "tests/looks/Contrast.h"
#include "tests/looks/Controls.h"
#include "tests/looks/EveryWindow.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zControl/MessageBox.h"
#include "zBaseControl.h"

namespace {

using namespace looks_tests;
using workbench::colour;
using workbench::Host;
using workbench::Tint;

constexpr double forText = 4.5;
constexpr double forShapes = 3;
constexpr double scale = 3;  // at which strokes have their pure colour

const QStringList skins = {QStringLiteral("light"), QStringLiteral("dark"),
                           QStringLiteral("contrast")};

/// What is drawn in a tint, and the tints that it is drawn on.
struct Drawn {
    const char* what;
    Tint tint;
    QVector<QPair<const char*, Tint>> grounds;
    double needed;
};

const QPair<const char*, Tint> window("window", Tint::Surface), card("card", Tint::Card),
    hoveredCard("hovered card", Tint::CardHover), field("field", Tint::Field),
    disabled("disabled control", Tint::Disabled), hovered("hovered row, heading", Tint::Hover),
    selected("selected row", Tint::Selected), pressed("pressed control", Tint::Pressed);

const QVector<Drawn>& drawings() {
    static const QVector<Drawn> table = {
        {"text",
         Tint::Text,
         {window, card, hoveredCard, field, hovered, selected, pressed},
         forText},
        {"muted text", Tint::Muted, {window, card, hoveredCard, field, hovered, selected}, forText},
        {"faint text",
         Tint::Faint,
         {window, card, hoveredCard, field, hovered, selected, disabled},
         forText},
        {"accent text, focus ring",
         Tint::AccentLine,
         {window, card, hoveredCard, field, hovered, selected},
         forText},
        {"error text", Tint::Danger, {window, card, field, hovered, selected}, forText},
        {"text on accent",
         Tint::OnAccent,
         {{"accent", Tint::Accent},
          {"hovered accent", Tint::AccentHover},
          {"pressed accent", Tint::AccentPressed}},
         forText},
        {"cross of the close button", Tint::Surface, {{"danger", Tint::Danger}}, forShapes},
        {"border of an input",
         Tint::Border,
         {window, card, hoveredCard, field, hovered, disabled},
         forShapes},
        {"lit border", Tint::AccentLine, {pressed}, forShapes},
        {"handle of a scroll bar", Tint::Handle, {window, card, field, hovered}, forShapes},
        {"hovered handle", Tint::HandleHover, {window, card, field, hovered}, forShapes}};
    return table;
}

/// A control on a window in a skin, in one of its states.
class Stage {
  public:
    explicit Stage(const Control& control) {
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(40, 40, 40, 40);
        widget = control.make(&window);
        QWidget* outer = widget;
        while (outer->parentWidget() != &window) outer = outer->parentWidget();
        layout->addWidget(outer);
        // Otherwise the first field takes the focus with the window.
        window.setFocusPolicy(Qt::StrongFocus);
        window.show();
        window.setFocus();
        testing_support::settle();
    }
    QImage picture() {
        testing_support::settle();
        return window.grab().toImage();
    }
    QRect place() const { return {widget->mapTo(&window, QPoint()), widget->size()}; }
    zBaseWidget window;
    QWidget* widget = nullptr;
};

/// @return the least that was measured; nothing where there is nothing to measure.
std::optional<double> leastOf(const QVector<Measured>& found) {
    std::optional<double> least;
    for (const Measured& each : found) least = qMin(least.value_or(21), each.contrast);
    return least;
}

class Contrast : public testing::Test {
  protected:
    Contrast() { Host::instance().setScale(scale); }
    SampleHost host;
};

/// @return the share of pixels in which two pictures differ visibly.
double difference(const QImage& one, const QImage& other) {
    int differing = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            const int most = qMax(qMax(qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b))),
                                  qAbs(qBlue(a) - qBlue(b)));
            if (most >= 14) ++differing;
        }
    return double(differing) / (one.width() * one.height());
}

QString number(double contrast) {
    return QString::number(contrast, 'f', 2);
}

TEST_F(Contrast, OfTheSkinsColoursIsEnough) {
    for (const QString& skin : skins) {
        Host::instance().setSkin(skin);
        for (const Drawn& drawn : drawings())
            for (const auto& ground : drawn.grounds)
                EXPECT_GE(contrast(colour(drawn.tint), colour(ground.second)), drawn.needed)
                    << skin.toStdString() << ": " << drawn.what << " on " << ground.first;
    }
}

void expectEnough(const Measures& found) {
    for (const Measured& each : found.texts)
        EXPECT_GE(each.contrast, forText) << each.what.toStdString();
    for (const Measured& each : found.edges + found.icons)
        EXPECT_GE(each.contrast, forShapes) << each.what.toStdString();
}

/// A strong line beside a weak text does not speak for it.
TEST_F(Contrast, IsThatOfTheTextAndNotOfABorderBesideIt) {
    QImage picture(200, 60, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setFont(TBaseTool::GetDefFont(39, QFont::Normal));
    painter.setPen(QColor(0xC0C0C0));
    painter.drawText(picture.rect(), Qt::AlignCenter, QStringLiteral("工程文件"));
    const double weak = contrast(QColor(0xC0C0C0), Qt::white);
    EXPECT_NEAR(contrastIn(picture, picture.rect()), weak, 0.01);
    painter.fillRect(0, 0, 200, 2, Qt::black);
    EXPECT_NEAR(contrastIn(picture, picture.rect()), weak, 0.01);
}

/// What is chosen, and what the mouse is over.
void touch(QWidget* window) {
    for (auto* view : window->findChildren<QAbstractItemView*>())
        if (view->isVisible() && view->selectionModel()) selectFirst(view);
    for (auto* widget : window->findChildren<QWidget*>()) widget->setAttribute(Qt::WA_UnderMouse);
}

TEST_F(Contrast, OfEveryTextEdgeAndIconOfEveryPageIsEnough) {
    for (const QString& skin : skins) {
        Host::instance().setSkin(skin);
        for (const Page& page : allPages()) {
            SCOPED_TRACE(skin.toStdString() + ", " + page.name);
            const std::unique_ptr<QWidget> window = page.open();
            const Measures found = measuresOf(window.get());
            EXPECT_GE(found.texts.size(), 3);
            expectEnough(found);
            touch(window.get());
            {
                SCOPED_TRACE("touched");
                expectEnough(measuresOf(window.get()));
            }
            if (qobject_cast<workbench::MessageBox*>(window.get())) continue;  // always of use
            window->setEnabled(false);
            SCOPED_TRACE("disabled");
            expectEnough(measuresOf(window.get()));
        }
    }
}

TEST_F(Contrast, OfControlsIsEnoughInEveryState) {
    for (const QString& skin : skins) {
        Host::instance().setSkin(skin);
        for (const Control& control : controls())
            for (const State& state : statesOf(Stage(control).widget)) {
                SCOPED_TRACE(skin.toStdString() + ", " + control.name + ", " + state.name);
                Stage stage(control);
                state.enter(stage.widget);
                testing_support::settle();
                const Measures found = measuresOf(&stage.window);
                EXPECT_FALSE((found.texts + found.edges + found.icons).isEmpty());
                expectEnough(found);
            }
    }
}

TEST_F(Contrast, TellsTheStatesOfAControlApart) {
    for (const QString& skin : skins) {
        Host::instance().setSkin(skin);
        for (const Control& control : controls()) {
            QMap<QString, QImage> pictures;
            for (const State& state : statesOf(Stage(control).widget)) {
                Stage stage(control);
                state.enter(stage.widget);
                pictures.insert(QLatin1String(state.name), stage.picture().copy(stage.place()));
            }
            for (const QString& one : pictures.keys())
                for (const QString& other : pictures.keys())
                    if (one < other) {
                        EXPECT_GT(difference(pictures[one], pictures[other]), 0.02)
                            << skin.toStdString() << ", " << control.name << ": "
                            << one.toStdString() << " and " << other.toStdString();
                    }
        }
    }
}

const Control& control(const char* name) {
    return *std::find_if(controls().begin(), controls().end(),
                         [name](const Control& each) { return each.name == std::string(name); });
}

TEST_F(Contrast, OfDefaultButtonsIsTheSameInEveryWindow) {
    for (const QString& skin : skins) {
        Host::instance().setSkin(skin);
        for (const State& state : statesOf(Stage(control("default button")).widget)) {
            QVector<QColor> grounds;
            QVector<double> texts;
            for (const char* name : {"default button", "plain default button"}) {
                Stage stage(control(name));
                state.enter(stage.widget);
                grounds.append(groundOf(stage.picture(), stage.place()));
                texts.append(*leastOf(measuresOf(&stage.window).texts));
            }
            EXPECT_EQ(grounds[0], grounds[1]) << skin.toStdString() << ", " << state.name;
            EXPECT_EQ(texts[0], texts[1]) << skin.toStdString() << ", " << state.name;
        }
    }
}

/// @return how many pixels differ enough to be told apart.
int clearlyDifferent(const QImage& one, const QImage& other) {
    int clear = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            clear += contrast(one.pixel(x, y), other.pixel(x, y)) >= forShapes;
    return clear;
}

/// What shows the focus differs enough from what is there without it.
TEST_F(Contrast, OfTheFocusIsEnough) {
    for (const QString& skin : skins) {
        Host::instance().setSkin(skin);
        for (const Control& control : controls()) {
            Stage stage(control);
            if (!(stage.widget->focusPolicy() & Qt::TabFocus)) continue;
            const QImage before = stage.picture();
            enterFocus(stage.widget);
            const QImage after = stage.picture();
            const QSize size = stage.widget->size();
            EXPECT_GT(clearlyDifferent(before, after), size.width() + size.height())
                << skin.toStdString() << ", " << control.name;
        }
    }
}

TEST_F(Contrast, OfTheRowThatTheKeysGoToIsNotThatOfOneThatIsClicked) {
    Stage stage(control("row of a list"));
    auto* view = static_cast<QAbstractItemView*>(stage.widget);
    const auto click = [&] {
        const QRect row = view->visualRect(view->model()->index(0, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, row.center());
        return stage.picture();
    };
    const QImage clicked = click();
    QTest::keyClick(view, Qt::Key_Home);
    EXPECT_GT(clearlyDifferent(clicked, stage.picture()), view->width() + view->height());
    EXPECT_EQ(clearlyDifferent(clicked, click()), 0);
}

/// Lines of drawings are what tells them; their fills may be faint.
TEST_F(Contrast, OfTheLinesOfEveryDrawingIsEnough) {
    const QRegularExpression stroke(QStringLiteral("stroke=\"(#[0-9A-Fa-f]{6})\""));
    for (const QString& skin : skins) {
        Host::instance().setSkin(skin);
        int lines = 0;
        for (const char* folder : {":/Image/Home", ":/Image/Workbench"}) {
            const QDir drawings(QLatin1String(folder), QStringLiteral("*.svg"));
            for (const QFileInfo& drawing : drawings.entryInfoList()) {
                if (drawing.fileName().endsWith(QLatin1String("-dark.svg")) ||
                    drawing.fileName().endsWith(QLatin1String("-contrast.svg")))
                    continue;
                QFile file(workbench::skinPicture(drawing.filePath()));
                ASSERT_TRUE(file.open(QIODevice::ReadOnly));
                auto found = stroke.globalMatch(QString::fromUtf8(file.readAll()));
                while (found.hasNext()) {
                    const QColor line(found.next().captured(1));
                    // White lines stand on a fill of their own, and so does the tick of a tile.
                    const bool tick = drawing.fileName() == QLatin1String("select.svg");
                    if (line == Qt::white || (tick && line != colour(Tint::AccentLine))) continue;
                    EXPECT_GE(contrast(line, colour(Tint::Surface)), forShapes)
                        << file.fileName().toStdString() << ": " << line.name().toStdString();
                    ++lines;
                }
            }
        }
        EXPECT_GT(lines, 12);
    }
}

/// The lowest of every control and state, in all skins.
QString rowOfPictures(const Control& control, const State& state) {
    QString row = QStringLiteral("| %1 | %2 |")
                      .arg(QString::fromUtf8(control.name), QLatin1String(state.name));
    for (const QString& skin : skins) {
        Host::instance().setSkin(skin);
        Stage stage(control);
        state.enter(stage.widget);
        testing_support::settle();
        const Measures found = measuresOf(&stage.window);
        for (const auto& part : {found.texts, found.edges, found.icons}) {
            const auto least = leastOf(part);
            row += least ? QStringLiteral(" %1 |").arg(number(*least)) : QStringLiteral(" |");
        }
    }
    return row + QLatin1Char('\n');
}

QString table() {
    QString text = QStringLiteral(
        "| drawn | on | light | dark | contrast | at least |\n|---|---|---|---|---|---|\n");
    for (const Drawn& drawn : drawings())
        for (const auto& ground : drawn.grounds) {
            text += QStringLiteral("| %1 | %2 |")
                        .arg(QLatin1String(drawn.what), QLatin1String(ground.first));
            for (const QString& skin : skins) {
                Host::instance().setSkin(skin);
                text += QStringLiteral(" %1 |").arg(
                    number(contrast(colour(drawn.tint), colour(ground.second))));
            }
            text += QStringLiteral(" %1 |\n").arg(drawn.needed);
        }
    text += QStringLiteral(
        "\n| control | state | light: text | edge | icon | dark: text | edge | icon "
        "| contrast: text | edge | icon |\n|---|---|---|---|---|---|---|---|---|---|---|\n");
    for (const Control& control : controls())
        for (const State& state : statesOf(Stage(control).widget))
            text += rowOfPictures(control, state);
    return text;
}

TEST_F(Contrast, OfThePageIsWhatIsMeasured) {
    QFile page(QStringLiteral(REPOSITORY "/docs/contrast.md"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString measured = table();
    EXPECT_TRUE(QString::fromUtf8(page.readAll()).endsWith(QLatin1Char('\n') + measured))
        << "docs/contrast.md has to end in:\n"
        << measured.toStdString();
}

}  // namespace
