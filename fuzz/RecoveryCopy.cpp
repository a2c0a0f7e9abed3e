#include "files/RecoveryCopy.h"

#include "Common.h"

// A copy comes back with title and path. A head that told another length than the body has would
// hide each change of the body, so it tells the right one.
void Fuzz(std::string_view input) {
    CopyHead head, again;
    if (!ReadCopyHead(input, head)) return;
    std::string bytes(input.substr(0, input.rfind('\n', head.BodyAt - 3) + 1));
    bytes.append(std::to_string(input.size() - head.BodyAt)).append("\n\n");
    bytes.append(input.substr(head.BodyAt));
    LoadedWave wave;
    LoadedDigit digit;
    if (ReadDigitCopy(bytes, head, digit)) OpenSound(std::move(digit));
    if (!ReadAnalogCopy(bytes, head, wave)) return;
    AnalogWaveRecord& record = OpenSound(std::move(wave));
    record.Name = head.Name;
    record.FileName = head.Path;
    Require(ReadAnalogCopy(CopyAnalog(record)(), again, wave));
    Require(again.Name == head.Name && again.Path == head.Path);
}
