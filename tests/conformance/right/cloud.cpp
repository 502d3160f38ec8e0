// A host with a log-in and both cloud disks.
#include "../cloudHost.h"

CloudHost& cloudHost() {
    static CloudHost host;
    return host;
}
