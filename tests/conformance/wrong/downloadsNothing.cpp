// a file on a cloud disk is fetched
#include "../cloudHost.h"

namespace {

class Wrong : public CloudHost {
    QJsonObject download(const QString& fileName) const override {
        return answer(localPath(fileName));
    }
};

}  // namespace

CloudHost& cloudHost() {
    static Wrong host;
    return host;
}
