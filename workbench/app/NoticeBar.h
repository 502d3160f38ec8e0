/// What went wrong, said in the window together with what can be done.
#pragma once

#include <QVector>
#include <QWidget>
#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace workbench {

/// One notice, in Chinese as Surface takes it.
struct Notice {
    struct Action {
        const char* text;
        std::function<void()> work;
    };
    const char* what = "";    ///< What could not be done.
    QString detail;           ///< Place and reason, as the system or the reader of files has it.
    const char* advice = "";  ///< What can be done; may be empty.
    QVector<Action> actions = {};  ///< Buttons for it, named "noticeAction0" and so on.
};

/// A bar above the projects, hidden while there is nothing to say. Its parts are "noticeText",
/// "noticeDetail" and "noticeClose".
class NoticeBar : public QWidget {
    Q_OBJECT
  public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Takes the place of the notice before.
    void tell(const Notice& notice);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void say();
    void adaptToLook();
    void drawPicture();

    Notice notice;
    QLabel* picture;
    QLabel* text;
    QLabel* detail;
    QHBoxLayout* buttons;
    QPushButton* closing;
};

}  // namespace workbench
