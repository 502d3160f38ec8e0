/// The card of one pricing model.
#pragma once

#include <QPointer>
#include <memory>

#include "SharedInterface.h"
#include "zBaseControl.h"

/// Shows a pricing model's name, basis and description, and offers "新建": a plain button, or a
/// split button where the configuration offers two or more fee-charging modes.
class ProModelItemForm : public zBaseWidget {
    Q_OBJECT
  public:
    /// @param shown copied; the card changes the fee modes of its copy.
    ProModelItemForm(const TaxTemplateInfo& shown, QWidget* parent);
    ~ProModelItemForm() override;

    /// Fills the labels and sets up the new-project control.
    void UpdateDataDisplay();
    /// Elides the description to the card's width.
    void UpdateDescriptionText();

    /// Keeps the card hidden, whoever shows it, until it comes into sight: its style, its layout
    /// and its place on the screen are most of what a card of a long list costs (docs/measures.md).
    void waitForSight();
    /// Ends the wait and shows the card.
    void comeIntoSight();
    void setVisible(bool visible) override;

  Q_SIGNALS:
    /// The user wants a project from this model. Receivers may delete the card.
    void signalNewPro(TaxTemplateInfo newProTaxInfo);

  protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Form;

    Q_INVOKABLE void initXjButton(zBaseButton* button);
    void describe(zBaseButton* button) const;
    void splitButton(zBaseButton* button, const QStringList& feeModes);
    zBaseMenu* feeModeMenu(const QStringList& feeModes, zBaseButton* create, QWidget* parent);
    void emitWithout(zBaseButton* create);
    void emitFromMenu(zBaseMenu* menu, zBaseButton* create);

    TaxTemplateInfo model;
    QString descriptionText;
    int describedWidth = -1;  ///< The card's width that the shown description was elided for,
    QFont describedFont;      ///< and the font.
    bool waiting = false;     ///< For its row to come into sight.
    QPointer<zBaseMenu> activeMenu;  ///< Whose entry is being triggered.
    std::unique_ptr<Form> ui;
};
