/// Composite controls of the host: modal dialogs, message boxes, ribbon.
#pragma once

#include <QDialog>
#include <QStringList>

#include "zBaseControl.h"

class QAction;

class NEWPRO_HOST_API FramelessDialog : public QDialog {
    Q_OBJECT
  public:
    explicit FramelessDialog(QWidget* parent = nullptr);
    ~FramelessDialog() override;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    QPoint grip;  ///< Where the window was taken hold of, in its own coordinates.
};

class NEWPRO_HOST_API RoundedDialog : public FramelessDialog {
    Q_OBJECT
  public:
    explicit RoundedDialog(QWidget* parent = nullptr);
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

class NEWPRO_HOST_API KVBaseDialog : public RoundedDialog {
    Q_OBJECT
  public:
    explicit KVBaseDialog(QWidget* parent = nullptr);
    ~KVBaseDialog() override;
    void done(int result) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    /// Class name from being shown until done, null otherwise; a hidden dialog goes on running.
    const char* running = nullptr;
};

/// Modal dialog with a close button in its upper right corner and no title bar: the content of the
/// derived class, laid out on the dialog itself, reaches to the upper edge.
class NEWPRO_HOST_API zBaseModal : public KVBaseDialog {
    Q_OBJECT
  public:
    explicit zBaseModal(QWidget* parent = nullptr);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
};

/// Modal dialog with a title bar. A layout set on the dialog keeps clear of the title bar.
class NEWPRO_HOST_API zTitleModal : public zBaseModal {
    Q_OBJECT
  public:
    explicit zTitleModal(QWidget* parent = nullptr);
    void SetCaption(const QString& caption);
    /// Of the buttons that a title bar may have, leaves only the one that closes.
    void OnlyClose();
    /// Shows the dialog modally. @return 0 when it was accepted, 1 otherwise.
    int ShowModal();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
};

/// Message boxes. @return index of the chosen button; -1 when the box was closed.
NEWPRO_HOST_API int showInformation(const QString& title, QWidget* parent, const QString& text,
                                    const QStringList& buttons);
NEWPRO_HOST_API int showCritical(const QString& title, QWidget* parent, const QString& text,
                                 const QStringList& buttons);
/// Box with the single button "确定". @param icon 1 for the information picture.
NEWPRO_HOST_API int showInforByOneBtn(const QString& text, QWidget* parent, int icon);

namespace RIBBON {

/// Describes one ribbon entry.
struct CentralTab {
    QString icon;  ///< Path of its picture; empty for none.
    QString text;  ///< Tab text; also the dynamic property "name" of the entry.
    int value = 0;
};

}  // namespace RIBBON

/// The widget of a ribbon entry. Its child "curText" is a zBaseButton.
class NEWPRO_HOST_API RibbonTab : public zBaseWidget {
    Q_OBJECT
  public:
    explicit RibbonTab(const RIBBON::CentralTab& tab, QWidget* parent = nullptr);
  public Q_SLOTS:
    /// Passed on to the child button.
    void setChecked(bool checked);
};

/// Row of exclusive entries.
class NEWPRO_HOST_API RibbonNavigationBar : public zBasePanelH {
    Q_OBJECT
  public:
    RibbonNavigationBar(int style, int alignment, int exclusive, QWidget* parent = nullptr);
    /// Adds an entry. @return a QWidgetAction whose default widget is a RibbonTab; both carry the
    ///         dynamic property "name", and the action's text() is the text of the entry, too: by
    ///         it an entry takes the place of a deleted one of the same text. A click checks the
    ///         entry, unchecks the others, and then triggers the action.
    QAction* addTab(const RIBBON::CentralTab& tab);
};
