#include "Common.h"
#include "digital/GlobalDigitDefineCode.h"
#include "files/DigitFileFuncCode.h"
#include "files/FileOptFuncCode.h"
#include "link/LinkWork.h"
#include "link/UploadFuncBox.h"

// What is read back can be saved and opened again; a failure makes no document.
void Fuzz(std::string_view input) {
    DownLoadDialog dialog;
    dialog.Kind = ScriptLink(input) % 2 != 0 ? &UploadDigitKind : &UploadAnalogKind;
    Link.IOType = UsbLink;
    OpenDownLoad(dialog);
    if (dialog.CloseAsked) return;
    LoadChosenWave(dialog);
    Require(AnalogDocCount + DigitDocCount == int(bool(dialog.CloseAsked)));
    LoadedWave wave;
    LoadedDigit digit;
    Require(AnalogDocCount == 0 || ReadAnalogText(WriteAnalogText(ActiveAnalog()), wave));
    Require(DigitDocCount == 0 || ReadDigitText(WriteDigitText(ActiveDigit()), digit));
    if (AnalogDocCount > 0) OpenSound(std::move(wave));
    if (DigitDocCount > 0) OpenSound(std::move(digit));
}
