/// The time that the cloud takes for an answer.
#pragma once

#include <QObject>

class QEventLoop;

namespace workbench {

/// Lets the time of one answer pass while the window lives on.
class CloudWait : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;

    /// @return whether the answer is there. False when the user gave up, while another answer is on
    ///         its way, and when this object was deleted meanwhile.
    bool wait();
    bool isWaiting() const { return loop != nullptr; }
    void giveUp();

  Q_SIGNALS:
    void busyChanged(bool busy);

  private:
    QEventLoop* loop = nullptr;
};

}  // namespace workbench
