#include "models/ProModelItemForm.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QVBoxLayout>

#include "core/ElidedLabel.h"
#include "core/guard.h"
#include "core/hostContract.h"
#include "core/scale.h"
#include "core/styleCodes.h"
#include "models/feeRecords.h"

using newpro::guarded;
using newpro::scaled;

namespace {

constexpr char cardSource[] = "ProModelItemForm";

constexpr double lineFontSize = 12.0;  // design pixels
constexpr int descriptionMargin = 50;  // pixels that the elided description leaves free, unscaled

/// Makes the record known to queued connections and QVariant, under its full name and its alias.
void registerModel() {
    static const int id = [] {
        qRegisterMetaType<ProjectSettingSpace::TaxTemplateInfo>("TaxTemplateInfo");
        return qRegisterMetaType<ProjectSettingSpace::TaxTemplateInfo>(
            "ProjectSettingSpace::TaxTemplateInfo");
    }();
    Q_UNUSED(id)
}

/// @return the menu text of a fee mode; empty for a mode without explanation.
QString feeModeText(const QString& mode) {
    if (mode == newpro::wholeProjectFee) return mode + QStringLiteral("(措施等费用在项目级计取)");
    if (mode == newpro::perUnitFee) return mode + QStringLiteral("(措施等费用在单位工程计取)");
    return QString();
}

}  // namespace

namespace {

/// @return a new layout at the end of `outer`, which owns it whatever the host throws from now on.
template <typename Layout>
Layout* nested(QVBoxLayout* outer) {
    auto* layout = new Layout;
    outer->addLayout(layout);
    return layout;
}

}  // namespace

struct ProModelItemForm::Form {
    /// @return the card's button, at work whatever goes wrong with the rest of the card.
    static zBaseButton* newButton(ProModelItemForm* card) {
        auto* button = new zBaseButton(QStringLiteral("新建"), card);
        QObject::connect(button, &QAbstractButton::clicked, card, [card] {
            guarded({cardSource, "ProModelItemForm"},
                    [card] { Q_EMIT card->signalNewPro(card->model); });
        });
        return button;
    }

    explicit Form(ProModelItemForm* card)
        : verticalLayout(new QVBoxLayout(card)),
          horizontalLayout(nested<QHBoxLayout>(verticalLayout)),
          verticalLayout_2(nested<QVBoxLayout>(verticalLayout)),
          lblTitle(new newpro::ElidedLabel(QString(), Qt::ElideRight, card)),
          btnNewProject(newButton(card)),
          lblSource(new newpro::ElidedLabel(QString(), Qt::ElideRight, card)),
          lblDescription(new newpro::ElidedLabel(QString(), Qt::ElideRight, card)) {
        verticalLayout->setObjectName(QStringLiteral("verticalLayout"));
        horizontalLayout->setObjectName(QStringLiteral("horizontalLayout"));
        verticalLayout_2->setObjectName(QStringLiteral("verticalLayout_2"));
        lblTitle->setObjectName(QStringLiteral("lblTitle"));
        btnNewProject->setObjectName(QStringLiteral("btnNewProject"));
        lblSource->setObjectName(QStringLiteral("lblSource"));
        lblDescription->setObjectName(QStringLiteral("lblDescription"));
        for (zBaseLabel* label : {lblTitle, lblSource, lblDescription}) {
            label->setControlType(newpro::SecondaryText);
        }
        btnNewProject->setControlType(newpro::NewButton);
        btnNewProject->setAutoDefault(false);
        btnNewProject->setCursor(Qt::PointingHandCursor);
        btnNewProject->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

        horizontalLayout->addWidget(lblTitle, 1);
        horizontalLayout->addWidget(btnNewProject);
        verticalLayout_2->addWidget(lblSource);
        verticalLayout_2->addWidget(lblDescription);
    }

    QVBoxLayout* verticalLayout;
    QHBoxLayout* horizontalLayout;
    QVBoxLayout* verticalLayout_2;
    zBaseLabel* lblTitle;
    zBaseButton* btnNewProject;
    zBaseLabel* lblSource;
    zBaseLabel* lblDescription;
};

ProModelItemForm::ProModelItemForm(const TaxTemplateInfo& shown, QWidget* parent)
    : zBaseWidget(parent, newpro::CardWidget), model(shown) {
    guarded(cardSource, [this] {
        ui = std::make_unique<Form>(this);
        resize(scaled(470), scaled(94));
        ui->verticalLayout->setSpacing(scaled(6));
        ui->verticalLayout->setContentsMargins(scaled(5), scaled(5), 0, scaled(5));
        ui->lblTitle->setMinimumWidth(scaled(5));
        QFont bold = ui->lblTitle->font();
        bold.setWeight(QFont::Bold);
        ui->lblTitle->setFont(bold);
        ui->btnNewProject->setMinimumWidth(scaled(50));
        ui->btnNewProject->setMaximumSize(scaled(50), QWIDGETSIZE_MAX);
        ui->verticalLayout_2->setSpacing(scaled(2));
        for (zBaseLabel* line : {ui->lblSource, ui->lblDescription}) {
            line->setFont(TBaseTool::GetDefFont(scaled(lineFontSize), QFont::Normal));
        }
        registerModel();
        UpdateDataDisplay();
    });
}

ProModelItemForm::~ProModelItemForm() {
    if (!activeMenu) return;
    // A receiver has deleted the card: Qt still works in the menu whose entry was triggered.
    activeMenu->setParent(nullptr, activeMenu->windowFlags());
    activeMenu->deleteLater();
}

void ProModelItemForm::UpdateDataDisplay() {
    guarded(cardSource, [this] {
        if (!ui) return;
        ui->lblTitle->setText(model.name);
        if (!ui->btnNewProject->layout()) describe(ui->btnNewProject);  // else it has parts

        QStringList basis;
        if (!model.leadingBasisDocument.isEmpty()) basis << model.leadingBasisDocument;
        if (!model.basisDocument.isEmpty()) basis << model.basisDocument;
        basis << model.basis;
        const QString sourceText = QStringLiteral("依据：") + basis.join(QStringLiteral("；"));
        ui->lblSource->setText(sourceText);
        ui->lblSource->setToolTip(sourceText);

        if (model.description.isEmpty()) ui->lblDescription->clear();
        descriptionText = QStringLiteral("说明：") + model.description;
        ui->lblDescription->setAccessibleName(descriptionText);
        describedWidth = -1;
        UpdateDescriptionText();
        initXjButton(ui->btnNewProject);
    });
}

void ProModelItemForm::UpdateDescriptionText() {
    guarded(cardSource, [this] {
        if (!ui) return;
        // A card is shown, and told its size, before its list lays it out.
        const QFont& font = ui->lblDescription->font();
        if (width() == describedWidth && font == describedFont) return;
        const int room = width() - descriptionMargin;
        ui->lblDescription->setText(
            newpro::elidedAtEnd(ui->lblDescription->fontMetrics(), descriptionText, room));
        ui->lblDescription->setToolTip(descriptionText);
        describedWidth = width();
        describedFont = font;
    });
}

void ProModelItemForm::initXjButton(zBaseButton* button) {
    ProjectSettingHelper* helper = ProjectSettingHelper::GetProjectSettingHelper();
    if (!helper) return;
    // Always the budget type's configuration, whatever kind the dialog is in.
    const ProjectSettingSpace::PricingModelInfoMap configured =
        helper->GetPricingModelInfoMap(newpro::applicationType::budget, QString());
    const ProjectSettingSpace::PricingModelInfo* info = newpro::recordOf(configured, model.key);
    if (!info) return;
    model.alternativeFeeMode = info->defaultFeeMode;
    if (info->feeModes.size() == 1) {
        model.feeMode = info->feeModes.constFirst();
    } else if (info->feeModes.size() > 1) {
        if (!button->layout()) splitButton(button, info->feeModes);
    }
}

void ProModelItemForm::describe(zBaseButton* button) const {
    button->setAccessibleName(QStringLiteral("新建：") + model.name);
    button->setAccessibleDescription(QStringLiteral("按此计价模型新建工程"));
}

void ProModelItemForm::splitButton(zBaseButton* button, const QStringList& feeModes) {
    button->SetText(QString());
    // The two parts take the keyboard; the frame around them has no action of its own to offer.
    button->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QHBoxLayout(button);
    layout->setContentsMargins(1, 0, 1, 0);
    layout->setSpacing(0);

    auto* create = new zBaseButton(QStringLiteral("新建"), button);
    connect(create, &QAbstractButton::clicked, this, [this, create] {
        guarded({cardSource, "initXjButton"}, [this, create] {
            model.feeMode = model.alternativeFeeMode;
            emitWithout(create);
        });
    });
    describe(create);
    button->setAccessibleDescription(QString());  // it is said of the part
    create->setTextAlignment(Qt::AlignRight);
    create->setControlType(newpro::SplitPart);
    create->setAutoDefault(false);
    layout->addWidget(create, 1);

    // The menu first: without one there is nothing to choose by.
    zBaseMenu* menu = feeModeMenu(feeModes, create, button);
    auto* choose = new zBaseButton(button);
    choose->setMenu(menu);
    choose->setIcon(QStringLiteral(":/Image/Home/xjXl.svg"));
    choose->setIconAlignment(Qt::AlignCenter);
    choose->setControlType(newpro::SplitPart);
    choose->setAutoDefault(false);
    choose->setAccessibleName(QStringLiteral("选择计费方式"));
    choose->setAccessibleDescription(QStringLiteral("选择计费方式，并按此模型新建：") + model.name);
    layout->addWidget(choose);
}

zBaseMenu* ProModelItemForm::feeModeMenu(const QStringList& feeModes, zBaseButton* create,
                                         QWidget* parent) {
    auto* menu = new zBaseMenu(parent);
    menu->setFixedWidth(scaled(240));
    for (const QString& mode : feeModes) {
        // Deliberately set here, while the menu is built, and not when the entry is picked: a pick
        // creates with whatever the field holds by then. Set by the pick, "整体计费" would create
        // with other fees than it does.
        if (mode == newpro::perUnitFee) model.feeMode = mode;
        QAction* action = menu->addAction(feeModeText(mode));
        connect(action, &QAction::triggered, this, [this, menu, create] {
            guarded({cardSource, "initXjButton"}, [&] { emitFromMenu(menu, create); });
        });
    }
    return menu;
}

/// Emits the model while the button `create` cannot be clicked.
void ProModelItemForm::emitWithout(zBaseButton* create) {
    const QPointer<zBaseButton> alive = create;
    create->setEnabled(false);
    // The receiver's exception must not leave the button disabled.
    struct Enable {
        const QPointer<zBaseButton>& button;
        ~Enable() {
            if (button) button->setEnabled(true);
        }
    } enable{alive};
    Q_EMIT signalNewPro(model);
}

void ProModelItemForm::emitFromMenu(zBaseMenu* menu, zBaseButton* create) {
    const QPointer<ProModelItemForm> alive = this;
    activeMenu = menu;
    const auto done = qScopeGuard([&alive] {
        if (alive) alive->activeMenu = nullptr;
    });
    emitWithout(create);
}

void ProModelItemForm::waitForSight() {
    waiting = true;
    hide();
}

void ProModelItemForm::comeIntoSight() {
    if (!waiting) return;
    waiting = false;
    show();
}

void ProModelItemForm::setVisible(bool visible) {
    guarded(cardSource, [&] {
        if (!visible || !waiting) zBaseWidget::setVisible(visible);
    });
}

void ProModelItemForm::mouseDoubleClickEvent(QMouseEvent* event) {
    guarded(cardSource, [&] {
        const QPointer<ProModelItemForm> alive = this;
        if (event->button() == Qt::LeftButton) Q_EMIT signalNewPro(model);
        if (alive) zBaseWidget::mouseDoubleClickEvent(event);
    });
}

void ProModelItemForm::resizeEvent(QResizeEvent* event) {
    guarded(cardSource, [&] {
        zBaseWidget::resizeEvent(event);
        UpdateDescriptionText();
    });
}
