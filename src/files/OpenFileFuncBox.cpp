#include "files/OpenFileFuncBox.h"

#include "files/DigitFileFuncCode.h"
#include "files/FileOptFuncCode.h"
#include "files/FileParts.h"
#include "files/ImportScopeFileFuncBox.h"

#include <string_view>

namespace {

struct EndingRow {
    std::string_view Ending;  // lower case
    bool (*Open)(const std::string& path);
};

constexpr EndingRow Endings[] = {
    {".drig", OpenDigitFile},
    {".wfm", OpenScopeFile},
};

}  // namespace

bool OpenWaveFile(const std::string& path) {
    for (const EndingRow& row : Endings)
        if (EndsWithLetters(path, row.Ending)) return row.Open(path);
    return OpenAnalogFile(path);
}
