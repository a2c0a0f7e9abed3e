#include "files/RecoveryFuncBox.h"
void BeginSession() {}
void RestoreSession() {}
void KeepSession() {}
void EndSession() {}
