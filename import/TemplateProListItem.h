/// The card of one template project.
#pragma once

#include <QString>
#include <memory>

#include "newProDialog_export.h"
#include "zBaseControl.h"

/// Shows a template project file and asks for a project made from it. A card never throws: what
/// goes wrong is reported to the host, and the card stays as far as it was built.
class NEWPRO_EXPORT TemplateProListItem : public zBaseWidget {
    Q_OBJECT
  public:
    /// Full card: title, description and basis number.
    /// @param file        absolute path of the template file; a missing file leaves the card with
    ///                    placeholder texts, and it can still be chosen.
    /// @param basisNumber basis document number. @param description description text.
    TemplateProListItem(const QString& file, const QString& basisNumber, const QString& description,
                        QWidget* parent);
    /// Path-only card: title, file information and folder. @param file as above.
    explicit TemplateProListItem(const QString& file, QWidget* parent = nullptr);
    ~TemplateProListItem() override;

  Q_SIGNALS:
    /// The user wants a project made from this template, by button or double-click. A receiver may
    /// delete the card. @param strTempalteFile path as given to the constructor.
    void signalCreateProByTemaplte(QString strTempalteFile);

  protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    struct Form;

    Q_INVOKABLE void InitWidgetDisplay();
    Q_SLOT void slotNewProject();
    void showFile();

    QString m_strFile;
    QString m_strWh;
    QString m_strDescription;
    bool m_bEmitting = false;  ///< True only while a double-click emits the signal.
    std::unique_ptr<Form> ui;
};
