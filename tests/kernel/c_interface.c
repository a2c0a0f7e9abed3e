#include "kernel/wavecalc.h"

/* Walks a wave through the interface from C: 0, or the number of the first step that went wrong. */
int RunFromC(void) {
    WaveDot dots[4];
    const uint16_t codes[2] = {7, 9};
    uint16_t spread[4];
    int32_t pixels[8], maxPos, minPos;
    double maxY, minY;

    wavecalc_seed(1);
    drawcurves(dots, 0, 4, 0, 2.0f, 0.0f, 1, 0.0f, 50, 1, 0, 50, 10, -5.0f); /* 0 1 0 -1 */
    if (sizeof(WaveDot) != 16 || dots[1].Y != 1.0) return 1;
    MaxMin(dots + 1, 1, 3, &maxPos, &minPos, &maxY, &minY);
    if (maxPos != 0 || minPos != 2 || maxY != 1.0 || minY != -1.0) return 2;
    if (PlotWaveDot(dots, pixels, 0, 3, 3, 3, 1.0, -1.0, 0, 3) != 4) return 3;
    stoInitArbConstruct(spread, codes, 1, 1, 1, 4);
    return spread[1] == 7 && spread[2] == 9 ? 0 : 4;
}
