#include <QFile>
#include <QGridLayout>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "core/styleCodes.h"
#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;

class Pages : public DialogTest {
  protected:
    template <typename T>
    T* on(const char* page, const char* name) {
        return child<T>(find<QWidget>(page), name);
    }
};

struct PageRow {
    const char* page;
    const char* caption;
    const char* create;
    bool grid;
};

const PageRow pageRows[] = {
    {"auditPage", "待审工程文件", "新建审核", false},
    {"contractingPage", "工程文件", "新建总承包", true},
};

TEST_F(Pages, HaveTheirTextsAndSizesAtEveryScale) {
    for (double scale : {1.0, 1.5, 2.0}) {
        workbench::Host::instance().setScale(scale);
        make();
        const auto size = [scale](int width, int height) {
            return QSize(qRound(width * scale), qRound(height * scale));
        };
        for (const PageRow& row : pageRows) {
            SCOPED_TRACE(row.page);
            auto* caption = on<zBaseLabel>(row.page, "caption");
            EXPECT_EQ(caption->text(), QString::fromUtf8(row.caption));
            EXPECT_NEAR(caption->height(), 17 * scale, 1);
            EXPECT_EQ(caption->width(), size(76, 17).width());
            auto* combo = on<zBaseCombox>(row.page, "fileCombo");
            EXPECT_TRUE(combo->isEditable());
            EXPECT_EQ(combo->minimumSize(), size(388, 32));
            EXPECT_EQ(combo->maximumSize(), size(388, 32));
            EXPECT_EQ(combo->parentWidget()->minimumHeight(), size(0, 30).height());
            auto* browse = on<zBaseButton>(row.page, "browseButton");
            EXPECT_EQ(browse->minimumSize().width(), qRound(55 * scale));
            EXPECT_EQ(browse->minimumSize().height(), qRound(32 * scale));
            EXPECT_EQ(browse->iconSize(), size(18, 18));
            EXPECT_TRUE(QFile::exists(QStringLiteral(":/Image/Home/LiuLan1.4.svg")));
            EXPECT_EQ(browse->cursor().shape(), Qt::PointingHandCursor);
            EXPECT_EQ(browse->accessibleName(), QStringLiteral("浏览"));
            EXPECT_EQ(browse->toolTip(), QStringLiteral("浏览"));
            EXPECT_EQ(browse->parentWidget()->layout()->contentsMargins(), QMargins());
            auto* create = on<zBaseButton>(row.page, "newButton");
            EXPECT_EQ(create->text(), QString::fromUtf8(row.create));
            EXPECT_EQ(create->minimumSize(), size(160, 32));
            EXPECT_EQ(create->maximumSize(), size(160, 32));
        }
    }
}

TEST_F(Pages, AreAColumnAndAGrid) {
    make();
    for (const PageRow& row : pageRows) {
        QLayout* layout = find<QWidget>(row.page)->layout();
        EXPECT_EQ(qobject_cast<QGridLayout*>(layout) != nullptr, row.grid) << row.page;
        EXPECT_EQ(qobject_cast<QVBoxLayout*>(layout) != nullptr, !row.grid) << row.page;
    }
}

TEST_F(Pages, AreBuiltOnce) {
    make();
    for (const char* builder : {"addShXjWid", "addZcbXjWid"}) {
        QWidget* page = nullptr;
        ASSERT_TRUE(QMetaObject::invokeMethod(dialog.get(), builder, Qt::DirectConnection,
                                              Q_RETURN_ARG(QWidget*, page)));
        ASSERT_TRUE(page);
        EXPECT_EQ(dialog->findChildren<QWidget*>(page->objectName()).size(), 1) << builder;
    }
}

TEST_F(Pages, EverySlotOfAPageAsksForTheFirstPage) {
    host.switches().firstPage = workbench::FirstPage::Absent;
    open();
    for (const char* slot :
         {"xjgsButtonSlot", "xjjsButtonSlot", "xjshButtonSlot", "xjZcbButtonSlot"}) {
        clearJournal();
        ASSERT_TRUE(QMetaObject::invokeMethod(dialog.get(), slot)) << slot;
        EXPECT_EQ(countOf("osgi::ObjectHelper::GetService"), 1) << slot;
    }
}

TEST_F(Pages, OfTheGridHaveTheirCaptionAboveThePath) {
    open();
    auto* page = find<QWidget>("contractingPage");
    qobject_cast<QStackedWidget*>(page->parentWidget())->setCurrentWidget(page);
    settle();
    auto* caption = on<QWidget>("contractingPage", "caption");
    auto* combo = on<QWidget>("contractingPage", "fileCombo");
    EXPECT_LT(caption->mapTo(dialog.get(), caption->rect().bottomLeft()).y(),
              combo->mapTo(dialog.get(), QPoint()).y());
    auto* create = on<QWidget>("contractingPage", "newButton");
    const int below =
        create->mapTo(page, QPoint()).y() - combo->mapTo(page, combo->rect().bottomLeft()).y();
    EXPECT_GT(below, 140) << "the gap is a row of its own";
    EXPECT_EQ(create->height(), 32);
}

TEST_F(Pages, TellAReaderWhatTheirControlsAreFor) {
    open();
    for (const char* page : {"auditPage", "contractingPage"}) {
        const QString caption = on<QLabel>(page, "caption")->text();
        const QString text = on<zBaseButton>(page, "newButton")->text();
        const auto description = [&](const char* control) {
            return on<QWidget>(page, control)->accessibleDescription();
        };
        EXPECT_EQ(description("fileCombo"), QStringLiteral("输入路径，或从最近的工程中选择"));
        EXPECT_EQ(description("browseButton"), QStringLiteral("在文件窗口中选择") + caption);
        EXPECT_EQ(description("newButton"), QStringLiteral("由所填的工程文件") + text);
    }
}

TEST_F(Pages, DressTheNewButtonAsOne) {
    open();
    pick(auditLabel);
    auto* create = on<zBaseButton>("auditPage", "newButton");
    const QImage shown = create->grab().toImage();
    create->setControlType(newpro::NewButton);
    EXPECT_EQ(create->grab().toImage(), shown);
    create->setControlType(newpro::SplitPart);
    EXPECT_NE(create->grab().toImage(), shown);
}

TEST_F(Pages, PlaceThePathAtTheSameIndentOnEveryScale) {
    for (const double scale : {1.0, 2.0}) {
        workbench::Host::instance().setScale(scale);
        open();
        pick(auditLabel);
        auto* combo = on<QWidget>("auditPage", "fileCombo");
        EXPECT_EQ(combo->mapTo(combo->parentWidget(), QPoint()).x(), int(165 * scale));
    }
}

TEST_F(Pages, StandInTheOrderOfTheScreenWithTheNewButtonInTheMiddle) {
    open();
    pick(auditLabel);
    const auto place = [this](QWidget* widget) {
        return QRect(widget->mapTo(dialog.get(), QPoint()), widget->size());
    };
    const QRect caption = place(on<QWidget>("auditPage", "caption"));
    const QRect combo = place(on<QWidget>("auditPage", "fileCombo"));
    const QRect browse = place(on<QWidget>("auditPage", "browseButton"));
    const QRect create = place(on<QWidget>("auditPage", "newButton"));
    EXPECT_LT(caption.bottom(), combo.top());
    EXPECT_GT(browse.left(), combo.right());
    EXPECT_LT(qAbs(browse.center().y() - combo.center().y()), 2);
    EXPECT_GE(create.top() - combo.bottom(), 139);
    EXPECT_NEAR(create.center().x(), place(find<QWidget>("auditPage")).center().x(), 1);
    EXPECT_GE(combo.left() - place(find<QWidget>("auditPage")).left(), 165);
    for (const QRect& rect : {caption, combo, browse, create}) {
        EXPECT_TRUE(dialog->rect().contains(rect));
    }
}

TEST_F(Pages, TheNewButtonsRefuseAnEmptyChoiceWithTheirMessage) {
    open();
    pick(auditLabel);
    clearJournal();
    click(on<zBaseButton>("auditPage", "newButton"));
    EXPECT_EQ(journalLines({"box", "dialog"}),
              Lines{R"(box showInformation("提示", "请选择预算工程文件", ["确定"]))"});
    pick(budgetLabel);
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    click(button("budgetButton"));
    clearJournal();
    click(on<zBaseButton>("contractingPage", "newButton"));
    EXPECT_EQ(journalLines({"box", "dialog"}),
              Lines{R"(box showInformation("提示", "请选择工程文件", ["确定"]))"});
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Pages, TheBrowseButtonsAskForAFileOnce) {
    host.switches().fileDialogPrepared = true;
    open();
    pick(auditLabel);
    clearJournal();
    click(on<zBaseButton>("auditPage", "browseButton"));
    EXPECT_EQ(countOf("zFileDialog::getOpenFileName"), 1);
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    click(button("budgetButton"));
    clearJournal();
    click(on<zBaseButton>("contractingPage", "browseButton"));
    EXPECT_EQ(countOf("zFileDialog::getOpenFileName"), 1);
}

TEST_F(Pages, TheEntriesOfAFieldMayHavePictures) {
    make();
    for (const PageRow& row : pageRows) {
        auto* combo = on<zBaseCombox>(row.page, "fileCombo");
        QPixmap red(16, 16);
        red.fill(Qt::red);
        combo->QComboBox::addItem(red, QString());
        QImage painted(200, 30, QImage::Format_RGB32);
        painted.fill(Qt::white);
        QPainter painter(&painted);
        QStyleOptionViewItem option;
        option.rect = painted.rect();
        option.decorationSize = red.size();
        combo->itemDelegate()->paint(&painter, option,
                                     combo->model()->index(combo->count() - 1, 0));
        bool shown = false;
        for (int x = 0; x < painted.width(); ++x)
            shown = shown || painted.pixelColor(x, painted.height() / 2) == QColor(Qt::red);
        EXPECT_TRUE(shown) << row.page;
    }
}

TEST_F(Pages, ReturnInAFieldNeitherClosesTheDialogNorPressesAButton) {
    open();
    pick(auditLabel);
    clearJournal();
    auto* combo = on<zBaseCombox>("auditPage", "fileCombo");
    combo->setFocus();
    QTest::keyClicks(combo, QStringLiteral("abc"));
    QTest::keyClick(combo, Qt::Key_Return);
    settle();
    EXPECT_EQ(combo->currentText(), QStringLiteral("abc"));
    EXPECT_EQ(combo->count(), 0) << "what is typed is no entry of the history";
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(journalLines(), Lines{});
}

TEST_F(Pages, TheTreeStyleIsFilledWithScaledSizesAndTheSkinsColour) {
    for (const char* skin : {"light", "dark", "contrast"}) {
        workbench::Host::instance().setSkin(QLatin1String(skin));
        workbench::Host::instance().setScale(1.5);
        make();
        QString style;
        ASSERT_TRUE(QMetaObject::invokeMethod(dialog.get(), "setTreeStyleSheet",
                                              Qt::DirectConnection, Q_RETURN_ARG(QString, style)));
        EXPECT_TRUE(style.startsWith(
            QStringLiteral("QTreeWidget{border: 0px solid rgb(229,229,229);font-size:21px;"
                           "background-color:transparent;}QTreeWidget::item{"
                           "selection-background-color:rgb(240,245,255); "
                           "selection-color:rgb(0,0,0);font-size:21px;}")))
            << style.toStdString();
        EXPECT_TRUE(style.contains(QStringLiteral("height:42px")));
        const zBaseWidget row(nullptr, 10);
        EXPECT_TRUE(style.contains(QStringLiteral("QTreeWidget::branch{background: %1;}")
                                       .arg(row.normalBackColor().name())));
        for (const char* part :
             {"vline_.png", "branch-more_.png", "branch-end_.png", "branch-closed.png",
              "branch-open.png", "rgb(205,232,255)", "#F0F5FD", "rgb(240,245,255)"}) {
            EXPECT_TRUE(style.contains(QLatin1String(part))) << part;
        }
        EXPECT_FALSE(style.contains(QLatin1Char('%')));
        // In a dark skin the rows' light tints are taken back, behind the sheet itself.
        const bool dark = skin != std::string("light");
        EXPECT_TRUE(tree()->styleSheet().startsWith(style));
        EXPECT_EQ(tree()->styleSheet() != style, dark) << tree()->styleSheet().toStdString();
        if (!dark) continue;
        const QColor background = row.normalBackColor();
        const QColor lit = QColor::fromHsl(background.hslHue(), background.hslSaturation(),
                                           background.lightness() + 24);
        EXPECT_TRUE(tree()->styleSheet().endsWith(
            QStringLiteral("selected{background-color:%1;}").arg(lit.name())));
    }
}

TEST_F(Pages, TheTreeFollowsTheSkinWhileTheDialogIsOpen) {
    open();
    const QString light = tree()->styleSheet();
    workbench::Host::instance().setSkin(QStringLiteral("dark"));
    settle();
    EXPECT_NE(tree()->styleSheet(), light);
    workbench::Host::instance().setSkin(QStringLiteral("light"));
    settle();
    EXPECT_EQ(tree()->styleSheet(), light);
    dialog.reset();
    workbench::Host::instance().setSkin(QStringLiteral("dark"));
}

TEST_F(Pages, TheTreeIsFilledAndFollowsTheSkinLaterWhereTheHostFailsToNameItsSkinsAtFirst) {
    host.addTemplate(QStringLiteral("kvys"), QStringLiteral("t.MODX"));
    for (const char* skin : {"dark", "contrast"}) {
        throwAt("SkinManager::instance", workbench::ThrowRule::As::StdException);
        make();
        throwNoMore();
        EXPECT_EQ(reports(), Lines{"NewProCfgDialog NewProCfgDialog::addMoBanWidget: boom"});
        EXPECT_EQ(tree()->topLevelItemCount(), 1);
        dialog->show();
        settle();
        const QString before = tree()->styleSheet();
        addKindOnMainPage(contractingLabel);
        pick(contractingLabel);
        pick(budgetLabel);
        workbench::Host::instance().setSkin(QLatin1String(skin));
        settle();
        EXPECT_NE(tree()->styleSheet(), before) << skin;
        EXPECT_EQ(tree()->topLevelItemCount(), 1);
    }
}

/// Collects which of some pages get their style.
class StyledPages : public QObject {
  public:
    explicit StyledPages(QStringList pages) : pages(std::move(pages)) {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        const QString name = watched->objectName();
        if (event->type() == QEvent::Polish && pages.contains(name)) styled.insert(name);
        return false;
    }
    QStringList pages;
    QSet<QString> styled;
};

TEST_F(Pages, AreStyledWhenTheyAreFirstShown) {
    StyledPages seen({QStringLiteral("auditPage"), QStringLiteral("contractingPage"),
                      QStringLiteral("templateTree"), QStringLiteral("lswGeneralTax")});
    open();
    QSet<QString> expected{QStringLiteral("lswGeneralTax")};
    EXPECT_EQ(seen.styled, expected);
    click(entryButton(auditLabel));
    settle();
    expected.insert(QStringLiteral("auditPage"));
    EXPECT_EQ(seen.styled, expected);
}

}  // namespace
