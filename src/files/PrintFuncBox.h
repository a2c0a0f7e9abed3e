#pragma once
// The picture of the active document on paper, or in the preview: the same dots and amplitudes as
// its view, in print colours, painted at the printer's resolution. The document's own surfaces stay
// as they are.

// Commands on the active document. A fault gives one message.
void PrintAnalog();
void PreviewAnalog();
void PrintDigit();
void PreviewDigit();
