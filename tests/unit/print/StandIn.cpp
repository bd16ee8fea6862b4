// A printer library that is there but does nothing. The build leaves entry points out by defining their names
// away.

#include "print/PosApi.h"

#define CALLED(name, Type)                                                                                     \
    extern "C" int name() { return 0; }
#define UNUSED(name) CALLED(name, void)
POS_ENTRY_POINTS(CALLED, UNUSED)
