#include "kernel/wavecalc.h"

/* Walks a wave and its codes through the interface from C: 1 if all is well. */
int RunFromC(void) {
    WaveDot dots[4];
    const uint16_t codes[2] = {7, 9};
    uint16_t spread[4];

    wavecalc_seed(1);
    drawcurves(dots, 0, 4, 0, 2.0f, 0.0f, 1, 0.0f, 50, 1, 0, 50, 10, -5.0f); /* 0 1 0 -1 */
    stoInitArbConstruct(spread, codes, 1, 1, 1, 4);
    return sizeof(WaveDot) == 16 && dots[1].Y == 1.0 && spread[1] == 7 && spread[2] == 9;
}
