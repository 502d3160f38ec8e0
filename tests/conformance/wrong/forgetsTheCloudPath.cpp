// browsing shows the cloud path of a file on a cloud disk
#include "../cloudHost.h"

CloudHost& cloudHost() {
    static CloudHost host;
    return host;
}

void zFileDialog::TbServerMsg(const QString&) {
    cloudHost().cloudPath.clear();
}
