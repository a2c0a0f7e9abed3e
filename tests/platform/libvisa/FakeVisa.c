// An instrument library with the published C signatures, as far as arguments are looked at. Each
// operation has a status of its own.
#include <stdint.h>
#include <string.h>

#define OPERATION(name, status) \
    int32_t name(void) {        \
        return status;          \
    }

OPERATION(viOpenDefaultRM, 1)
OPERATION(viFindRsrc, -2)
OPERATION(viFindNext, 3)
OPERATION(viWrite, 6)
#ifndef LACKS_READ
OPERATION(viRead, 7)
#endif
OPERATION(viClose, 8)

int32_t viOpen(uint32_t manager, const char* name, uint32_t mode, uint32_t timeOut) {
    return (int32_t)(manager * 1000 + strlen(name) * 100 + mode * 10 + timeOut);
}
int32_t viSetAttribute(uint32_t session, uint32_t attribute, uintptr_t value) {
    return (int32_t)(session + attribute + value);
}
