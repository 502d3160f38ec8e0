// A cloud disk that is asked over a network answers from an event loop.
#include <QEventLoop>
#include <QTimer>

#include "../cloudHost.h"

namespace {

class Fetching : public CloudHost {
    void fetch() const override {
        QEventLoop loop;
        QTimer::singleShot(1, &loop, &QEventLoop::quit);
        loop.exec();
    }
};

}  // namespace

CloudHost& cloudHost() {
    static Fetching host;
    return host;
}
