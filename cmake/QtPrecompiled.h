#pragma once
// The Qt and standard headers that most windows include.
#ifdef __cplusplus
#include <algorithm>
#include <array>
#include <cstdint>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QString>
#include <QWidget>
#include <string>
#include <vector>
#endif
