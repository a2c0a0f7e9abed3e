#include "files/PrintFuncBox.h"
void PrintAnalog() {}
void PreviewAnalog() {}
void PrintDigit() {}
void PreviewDigit() {}
