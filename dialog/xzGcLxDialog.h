/// The small dialog that asks which kind of project to create.
#pragma once

#include "newProDialog_export.h"
#include "zControl.h"

/// Modal chooser. Read the answer from exec(): the program type of the chosen kind (4 budget, 16
/// general contracting; 6 estimate has a button that never shows), or 0 when cancelled.
class NEWPRO_EXPORT xzGcLxDialog : public zTitleModal {
    Q_OBJECT
  public:
    explicit xzGcLxDialog(QWidget* parent);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    // Connected in CreateUI. Never call connectSlotsByName for this dialog: a click would then run
    // its slot twice.
    Q_SLOT void on_BtnYs_clicked();
    Q_SLOT void on_BtnZcb_clicked();
    Q_SLOT void on_BtnGs_clicked();
    Q_SLOT void on_BtnQx_clicked();

    Q_INVOKABLE void CreateUI();
    Q_INVOKABLE void InitUI();
    /// @param function the slot that answers; leave it to its default.
    void answer(int result, const char* function = __builtin_FUNCTION());

    bool isCreated = false;
    zBaseLabel* caption = nullptr;
    zBaseButton* BtnYs = nullptr;
    zBaseButton* BtnZcb = nullptr;
    zBaseButton* BtnGs = nullptr;
    zBaseButton* BtnQx = nullptr;
};
