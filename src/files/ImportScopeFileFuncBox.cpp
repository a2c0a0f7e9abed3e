#include "files/ImportScopeFileFuncBox.h"
void ImportWave() {}
