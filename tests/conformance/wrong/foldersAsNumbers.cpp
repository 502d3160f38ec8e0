// a file on a cloud disk is fetched
#include "../cloudHost.h"

namespace {

class Wrong : public CloudHost {
    QJsonArray companyTop() const override {
        QJsonObject node = folder(QStringLiteral("部门"), {});
        node[QStringLiteral("wjlx")] = 1;
        return {node};
    }
};

}  // namespace

CloudHost& cloudHost() {
    static Wrong host;
    return host;
}
