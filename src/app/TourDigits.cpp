#include "app/TourDigits.h"

#include "app/TourHands.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitView.h"
#include "ui/DocumentWindow.h"

const DigitDocument& Wave() {
    return ActiveDigit();
}

QWidget* Pic(const TourState& tour, const char* name) {
    return Control(tour.Window->Window(tour.Window->ActiveTag()), name);
}

std::int16_t NodeOf(const char* name) {
    return TargetOfName(Wave(), name).Node;
}

namespace {

int RowY(const char* name) {
    const int row = Wave().Nodes[static_cast<std::size_t>(NodeOf(name))].Row;
    return qRound((row - Wave().FirstRow + 0.5) * RowHeight);
}

}  // namespace

QPoint At(const char* name, int dot) {
    return {qRound(DotToPixel(Wave(), dot + 0.5)), RowY(name)};
}

QPoint InList(const char* name) {
    return {60, RowY(name)};
}

std::int32_t Value(const char* name, std::int32_t dot) {
    return ValueAt(Wave(), {.Node = NodeOf(name)}, dot);
}

std::string Names() {
    std::string names;
    for (const DigitNode& node : Wave().Nodes) names.append(node.Name).append(" ");
    return names;
}

void Pick(QWidget* list, int index) {
    PressKey(list, Qt::Key_Home);
    for (int i = 0; i < index; ++i) PressKey(list, Qt::Key_Down);
}

void WriteCount(TourState& tour, const CountValues& count, const char* picture) {
    WithDialog([&] { Click(Part(tour, "ValueAresBtn14")); },
               [&](QWidget* dialog) {
                   Pick(Control(dialog, "RadixCmb"), 1);
                   FillIn(dialog, {{"CountStartValuetxt", count.Start},
                                   {"CountIncValueTxt", count.Increment},
                                   {"TimeStartTxt", "0"},
                                   {"TimeEndTxt", count.Last},
                                   {"CountInteTxt", count.Interval}});
                   if (picture) Picture(tour, dialog, picture);
                   Click(Control(dialog, "OkAresBtn"));
               });
}

void NewDigitalDocument(TourState& tour, const char* dots, const char* position,
                        const char* picture) {
    WithDialog([&] { Click(Part(tour, "NewDigitWaveAresBtn")); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"DotnumTxt", dots}, {"PositionTxt", position}});
                   if (picture) Picture(tour, dialog, picture);
                   Click(Control(dialog, "OkAresBtn"));
               });
}

void InsertNode(TourState& tour, const char* name, const char* width, int radix,
                const char* picture) {
    WithDialog([&] { Click(Part(tour, "InsertNodeAresBtn")); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"DigitNameTxt", name}, {"DigitBusTXt", width}});
                   Pick(Control(dialog, "DigitRadixCmb"), radix);
                   if (picture) Picture(tour, dialog, picture);
                   Click(Control(dialog, "OkAresBtn"));
               });
}
