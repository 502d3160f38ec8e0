// a log-in goes on with the file
#include "../cloudHost.h"

namespace {

class Wrong : public CloudHost {
    QString userId() const override { return {}; }
};

}  // namespace

CloudHost& cloudHost() {
    static Wrong host;
    return host;
}
