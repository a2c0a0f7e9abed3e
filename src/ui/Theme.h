#pragma once
// The look of every window: colours of the chrome, style sheet, fonts and tinted icons. The plot
// is dark in both chromes and has its colours from the painters.
#include <QByteArray>
#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;
class QPalette;

enum class Chrome { Dark, Light };

struct ChromePalette {
    QColor base, panel, strip, line, text, dim, accent, connected, busy, fault;
};

/// The chrome for a desktop with the given palette: dark where its window text is lighter than
/// its windows, or where there is no desktop that says anything. `wish` ("dark", "light") wins.
Chrome ChooseChrome(const QPalette& desktop, bool desktopSpeaks, const QByteArray& wish);

const ChromePalette& CurrentChrome();

/// Sets style, palette, style sheet and fonts of the program. The environment variable
/// TIDEMARK_CHROME (dark, light) overrides the desktop. May be called again.
void ApplyTheme(QApplication& app);

/// The drawing /icons/`name`.svg tinted from the chrome: text colour; dim when disabled; accent
/// when on. Rendered at the size and pixel ratio asked for, when first shown.
QIcon ThemedIcon(const QString& name);

/// The sign before a note, a fault or a warning: its colour, nearer to that of text.
QColor SignColour(bool fault);

/// A colour between two: `share` 0 gives `from`, 1 gives `to`.
QColor MixColours(const QColor& from, const QColor& to, double share);
