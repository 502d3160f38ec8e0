// A project can be started, with a ribbon, where all else is null that may be.
#include "../nullHost.h"
