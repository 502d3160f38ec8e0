/// The answers of the host, as switches.
#pragma once

#include <QScrollArea>
#include <functional>

class QFormLayout;

namespace workbench {

class HostPanel : public QScrollArea {
    Q_OBJECT
  public:
    explicit HostPanel(QWidget* parent = nullptr);

    /// Shows the host's state again, after something else has changed it.
    void refresh();

  private:
    struct Choice {
        QString text;
        std::function<bool()> isSet;
        std::function<void()> set;
    };

    void addHeading(const QString& text);
    void addChoices(const QString& caption, const char* objectName, const QVector<Choice>& choices);
    void addSwitch(const QString& text, const char* objectName, std::function<bool()> isOn,
                   std::function<void(bool)> set);
    void addUserId();
    void addHostSwitches();
    void addAccountSwitches();
    void addServiceSwitches();
    void addLook();
    void adaptToScale();

    QFormLayout* form;
    QVector<QWidget*> headings;
    QVector<std::function<void()>> refreshers;
};

}  // namespace workbench
