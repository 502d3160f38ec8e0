/// The answers of the host, as switches.
#pragma once

#include <QScrollArea>
#include <functional>

class QFormLayout;
class QLabel;

namespace workbench {

struct HostSwitch;

/// Shows what the table of switches gives captions to. A widget is named by the switch's key; a
/// tick of one word by the key, a dot and the word.
class HostPanel : public QScrollArea {
    Q_OBJECT
  public:
    explicit HostPanel(QWidget* parent = nullptr);

    /// Shows the host's state again, after something else has changed it.
    void refresh();
    /// Says something of the scale, which is the last of the switches. @param text empty: nothing.
    void setNote(const QString& text);

    /// So wide that no switch is cut, but for a font with which the window would leave the screen.
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    /// Of a control, as the tests, the user and who does not see its caption know it.
    struct Names {
        QString key, caption, description;
    };

    static void name(QWidget* control, const Names& names);
    void add(const HostSwitch& each);
    void addText(const HostSwitch& each, const QString& caption);
    void addList(const HostSwitch& each, const QString& caption, const QStringList& captions);
    void addTick(const Names& names, std::function<bool()> isOn, std::function<void(bool)> set);
    void adaptToScale();

    QFormLayout* form;
    QLabel* note;
    QVector<QWidget*> headings;
    QVector<std::function<void()>> refreshers;
};

}  // namespace workbench
