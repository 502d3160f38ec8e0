#include "dialog/xzGcLxDialog.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include "core/guard.h"
#include "core/hostContract.h"
#include "core/scale.h"
#include "core/styleCodes.h"

namespace {

using newpro::guarded;
using newpro::scaled;

const char chooserSource[] = "xzGcLxDialog";

const int cancelled = 0;

/// What a screen reader tells of a button.
struct Told {
    QString name, description;
};

zBaseButton* button(const char* name, const QString& text, const Told& told, QWidget* parent) {
    auto* made = new zBaseButton(text, parent);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(told.name);
    made->setAccessibleDescription(told.description);
    made->setAutoDefault(false);
    return made;
}

}  // namespace

xzGcLxDialog::xzGcLxDialog(QWidget* parent) : zTitleModal(parent) {
    guarded(chooserSource, [this] {
        // Its answer is used after it has closed: it must not end the application.
        setAttribute(Qt::WA_QuitOnClose, false);
        SetCaption(QStringLiteral("新建"));
        setFixedSize(scaled(280), scaled(240));
        CreateUI();
        InitUI();
        OnlyClose();
        if (BtnYs) BtnYs->setFocus(Qt::TabFocusReason);
    });
}

void xzGcLxDialog::CreateUI() {
    guarded(chooserSource, [this] {
        if (isCreated) return;
        isCreated = true;
        caption = new zBaseLabel(QStringLiteral("选择工程类型:"), this);
        // Each is whole before the next is made: an exception there leaves it of use.
        BtnYs = button("BtnYs", QStringLiteral("预算工程"),
                       {QStringLiteral("预算工程"), QStringLiteral("新建预算工程")}, this);
        connect(BtnYs, &QPushButton::clicked, this, &xzGcLxDialog::on_BtnYs_clicked);
        BtnZcb = button("BtnZcb", QStringLiteral("总承包工程"),
                        {QStringLiteral("总承包工程"), QStringLiteral("新建总承包工程")}, this);
        connect(BtnZcb, &QPushButton::clicked, this, &xzGcLxDialog::on_BtnZcb_clicked);
        BtnGs = button("BtnGs", QStringLiteral("概     算"),
                       {QStringLiteral("概算"), QStringLiteral("新建概算工程")}, this);
        BtnGs->hide();
        connect(BtnGs, &QPushButton::clicked, this, &xzGcLxDialog::on_BtnGs_clicked);
        BtnQx = button("BtnQx", QStringLiteral("取     消"),
                       {QStringLiteral("取消"), QStringLiteral("关闭此窗口，不新建工程")}, this);
        connect(BtnQx, &QPushButton::clicked, this, &xzGcLxDialog::on_BtnQx_clicked);
    });
}

void xzGcLxDialog::InitUI() {
    guarded(chooserSource, [this] {
        if (layout()) return;
        // Each layout stands in the one around it before the host is asked anything more.
        auto* outer = new QVBoxLayout(this);
        auto* heading = new QVBoxLayout;
        outer->addLayout(heading);
        auto* buttons = new QVBoxLayout;
        outer->addLayout(buttons);
        outer->addStretch();
        outer->setSpacing(scaled(10));

        // What CreateUI did not come to is missing here.
        if (caption) {
            caption->setFixedHeight(scaled(21));
            heading->addWidget(caption);
        }
        auto* divider = new zBaseLabel(this);
        heading->addWidget(divider);
        divider->setControlType(newpro::DividerLine);
        heading->setSpacing(scaled(5));

        buttons->setSpacing(scaled(10));
        for (zBaseButton* choice : {BtnYs, BtnZcb, BtnGs, BtnQx}) {
            if (!choice) continue;
            // The hidden one keeps its own width.
            if (choice != BtnGs) choice->setMinimumWidth(scaled(200));
            choice->setMinimumHeight(scaled(32));
            buttons->addWidget(choice, 0, Qt::AlignHCenter);
        }
    });
}

void xzGcLxDialog::answer(int result, const char* function) {
    guarded({chooserSource, function}, [this, result] { done(result); });
}

void xzGcLxDialog::on_BtnYs_clicked() {
    answer(newpro::BudgetProgram);
}

void xzGcLxDialog::on_BtnZcb_clicked() {
    answer(newpro::ContractingProgram);
}

void xzGcLxDialog::on_BtnGs_clicked() {
    answer(newpro::EstimateProgram);
}

void xzGcLxDialog::on_BtnQx_clicked() {
    answer(cancelled);
}

void xzGcLxDialog::closeEvent(QCloseEvent* event) {
    event->accept();
    answer(cancelled);
}
