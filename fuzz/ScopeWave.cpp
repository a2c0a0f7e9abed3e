#include "Common.h"
#include "files/FileOptFuncCode.h"
#include "files/ImportScopeFileFuncBox.h"

void Fuzz(std::string_view input) {
    LoadedWave wave;
    if (ReadScopeWave(input, wave) == ScopeFault::None)
        RequireKept(std::move(wave), ReadAnalogText, WriteAnalogText);
}
