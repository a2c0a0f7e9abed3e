// An instrument library with the published C signatures, as far as arguments are looked at.
#include <stdint.h>
#include <string.h>

int32_t viOpenDefaultRM(uint32_t* manager) {
    *manager = 5;
    return 1;
}
int32_t viFindRsrc(void) {
    return -2;
}
int32_t viFindNext(void) {
    return 3;
}
int32_t viOpen(uint32_t manager, const char* name, uint32_t mode, uint32_t timeOut,
               uint32_t* instrument) {
    *instrument = manager * 1000 + (uint32_t)strlen(name) * 100 + mode * 10 + timeOut;
    return 4;
}
int32_t viSetAttribute(uint32_t session, uint32_t attribute, uintptr_t value) {
    return (int32_t)(session + attribute + value);
}
int32_t viWrite(uint32_t session, const uint8_t* bytes, uint32_t count, uint32_t* written) {
    *written = session + bytes[0] + count;
    return 6;
}
#ifndef LACKS_READ
int32_t viRead(uint32_t session, uint8_t* bytes, uint32_t count, uint32_t* read) {
    *read = session + bytes[0] - count;
    return 7;
}
#endif
int32_t viClose(uint32_t session) {
    return (int32_t)session;
}
