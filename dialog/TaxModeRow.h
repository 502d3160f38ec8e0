/// The row of buttons above the tax-mode pages.
#pragma once

#include <array>

#include "core/part.h"
#include "core/taxMode.h"
#include "zBaseControl.h"

namespace newpro {

/// The pages of the tax-mode stack. The first three are the tax modes themselves.
enum TaxPage {
    GeneralPage = GeneralTax,
    SimplePage = SimpleTax,
    BusinessPage = BusinessTax,
    TemplatePage,
    ContractingPage,
    taxPageCount
};

/// Owns two pieces of state: which button is checked, and which buttons are shown. A button that
/// the host has deleted is passed over.
class TaxModeRow : public zBasePanelH {
    Q_OBJECT
  public:
    explicit TaxModeRow(QWidget* parent);

    /// @param page a TaxPage. @return its button.
    const Part<zBaseButton>& button(int page) const { return buttons.at(size_t(page)); }
    zBaseButton* importButton() const { return importTender; }

    /// Leaves exactly the button of `page` checked among the first four; for the contracting page,
    /// whose button keeps the state of its own click, none of them.
    void check(int page);
    /// @return whether the button of `page` is checked.
    bool isChecked(int page) const { return button(page) && button(page)->isChecked(); }
    void setChecked(int page, bool checked) {
        if (button(page)) button(page)->setChecked(checked);
    }
    void setShown(int page, bool shown) {
        if (button(page)) button(page)->setVisible(shown);
    }

  private:
    std::array<Part<zBaseButton>, taxPageCount> buttons;
    const Part<zBaseButton> importTender;
};

}  // namespace newpro
