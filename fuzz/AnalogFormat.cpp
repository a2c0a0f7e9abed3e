#include "Common.h"
#include "files/FileOptFuncCode.h"

// Built once for each format, whose procedures are Read and Write.
void Fuzz(std::string_view input) {
    LoadedWave wave;
    if (Read(input, wave)) RequireKept(std::move(wave), Read, Write);
}
