/// Watches what a person does in the dialog, and makes a scenario of it.
#pragma once

#include <QJsonArray>
#include <QObject>
#include <QPointer>

#include "workbench/scenario/Scenario.h"

class QAction;
class QComboBox;
class QKeyEvent;
class QMenu;
class QMouseEvent;
class QWidget;

namespace workbench {

/// Watches mouse, keyboard and journal from its construction to its end. It is made where the host
/// stands as a play of the scenario will find it: what the host's switches say later is what
/// differs. The host's own windows (boxes, file dialog, log-in) are recorded by their answers.
class Recorder : public QObject {
    Q_OBJECT
  public:
    Recorder();

    /// @return what has been done so far, and what crossed the boundary as its expectation.
    Scenario scenario(const QString& title) const;
    /// @return the journal that a play of the scenario is to give.
    const QVector<QJsonObject>& journal() const { return entries; }
    /// @return what was done that no step says, each with the number of steps before it.
    const QStringList& unsaid() const { return lost; }

  Q_SIGNALS:
    /// There is one more step; what it does is still to come.
    void stepAdded();
    void entryAdded();  ///< The journal has grown.

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void notice(QWidget* widget, QEvent* event);
    void noticeShow(QWidget* widget);
    void noticePress(QWidget* widget, const QMouseEvent* event);
    void noticeRelease(QWidget* widget, const QMouseEvent* event);
    void noticeEntryOfMenu(const QAction* entry);
    void noticeMenuKey(QWidget* menu, const QKeyEvent* event);
    void noticeKey(QWidget* widget, const QKeyEvent* event);
    void noticeEntry(const QJsonObject& entry);
    void noticeLogin(bool accepted);
    void noticeChoice(int index);
    void watch(QComboBox* combo);
    void watch(QMenu* menu);
    void leaveMenu();
    void click(QWidget* widget, bool twice);
    void lose(const QString& what, const QWidget* on);
    void add(Step step);
    void addText();
    void addHost();
    Expectations expectation() const;

    QVector<Step> steps;
    QJsonObject host;  ///< What differed from the start before the first step.
    QJsonArray fileAnswers;
    QVector<QJsonObject> entries;
    QStringList lost;
    QJsonObject known;         ///< The switches, as the scenario has set them so far.
    QString folder;            ///< The installation.
    QPointer<QWidget> opened;  ///< The dialog or chooser that is not done yet.
    QPointer<QWidget> pressed;
    QPointer<QWidget> keyDown;
    QPointer<QComboBox> edited;  ///< Whose text was typed and is no step yet.
    Step menuStep;               ///< Of the card whose menu is open.
    QPointer<QWidget> clicked;   ///< Whose click is the last step: it may become a double click.
    bool doubled = false;        ///< The second press of a double click is not released yet.
    bool keyed = false;          ///< The last input was a key that is a step of its own.
    bool kindChosen = false;     ///< The chooser is about to open the dialog.
};

}  // namespace workbench
