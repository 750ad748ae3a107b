#include "host/HostApp.h"

wxIMPLEMENT_APP(host::HostApp);
