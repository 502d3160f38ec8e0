#include "workbench/app/NoticeBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "workbench/app/Surface.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"

namespace workbench {

namespace {

QLabel* noticeLabel(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);  // names of files may look like markup
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

}  // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QWidget(parent),
      picture(new QLabel),
      text(noticeLabel("noticeText")),
      detail(noticeLabel("noticeDetail")),
      buttons(new QHBoxLayout),
      closing(new QPushButton) {
    setObjectName(QStringLiteral("notice"));
    setAttribute(Qt::WA_StyledBackground);
    closing->setObjectName(QStringLiteral("noticeClose"));
    auto* words = new QVBoxLayout;
    words->addWidget(text);
    words->addWidget(detail);
    words->addLayout(buttons);
    auto* row = new QHBoxLayout(this);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addLayout(words, 1);
    say();
    hide();
    connect(closing, &QPushButton::clicked, this, &QWidget::hide);
    connect(&Surface::instance(), &Surface::languageChanged, this, &NoticeBar::say);
    connect(&Host::instance(), &Host::skinChanged, this, &NoticeBar::adaptToLook);
    connect(&Host::instance(), &Host::scaleChanged, this, &NoticeBar::adaptToLook);
    adaptToLook();
}

void NoticeBar::tell(const Notice& newNotice) {
    notice = newNotice;
    say();
    setVisible(true);
}

void NoticeBar::say() {
    text->setText(said(notice.what));
    detail->setText(*notice.advice ? notice.detail + QLatin1Char('\n') + said(notice.advice)
                                   : notice.detail);
    detail->setHidden(detail->text().isEmpty());
    setAccessibleName((text->text() + QLatin1Char('\n') + detail->text()).trimmed());
    while (QLayoutItem* old = buttons->takeAt(0)) {
        if (old->widget() && old->widget() != closing) old->widget()->deleteLater();
        delete old;
    }
    for (int i = 0; i < notice.actions.size(); ++i) {
        auto* button = new QPushButton(said(notice.actions[i].text));
        button->setObjectName(QStringLiteral("noticeAction%1").arg(i));
        button->setAccessibleDescription(text->text());
        // A copy: the work may tell something else.
        connect(button, &QPushButton::clicked, this, [work = notice.actions[i].work] { work(); });
        buttons->addWidget(button);
    }
    closing->setText(said("知道了"));
    closing->setAccessibleDescription(said("收起此通知"));
    buttons->addWidget(closing);
    buttons->addStretch();
}

void NoticeBar::drawPicture() {
    const QSize size(roomFor(22), roomFor(22));
    picture->setPixmap(pixmapOf(skinPicture(QStringLiteral(":/Image/Workbench/critical.svg")), size,
                                devicePixelRatioF()));
}

void NoticeBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) drawPicture();
}

void NoticeBar::adaptToLook() {
    drawPicture();
    layout()->setContentsMargins(scaled(16), scaled(12), scaled(16), scaled(12));
    layout()->setSpacing(scaled(12));
    say();
    buttons->setSpacing(scaled(8));
    setStyleSheet(QStringLiteral("#notice{background:%1;border:none;border-bottom:1px solid %2}"
                                 "#noticeText{font-weight:bold}")
                      .arg(colour(Tint::Hover).name(), colour(Tint::Danger).name()));
}

}  // namespace workbench
