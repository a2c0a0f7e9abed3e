#pragma once
// Set-up that controls of several windows share.
#include <QStringList>

class QComboBox;
class QWidget;

void MakeBold(QWidget* text);
/// A hidden control keeps its room.
void KeepPlace(QWidget* control);
/// The mouse pointer over a picture; asked for at every move of the mouse.
void ShowCursor(QWidget* picture, Qt::CursorShape shape);

/// Gives a list its entries. One that has them already keeps its place: it may be open.
void FillList(QComboBox* list, const QStringList& entries);
/// Adds entries that are shortened where they are wider than the list, which has its width. The
/// tool tip of such an entry has the whole.
void AddShortened(QComboBox* list, const QStringList& entries, Qt::TextElideMode cut);
