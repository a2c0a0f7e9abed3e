#include "ui/MainHost.h"

#include "frame/HelpPages.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "platform/Host.h"
#include "platform/qt/QtText.h"
#include "ui/AboutFrm.h"
#include "ui/ArbitraryValueFrm.h"
#include "ui/CommunicateSettingFrm.h"
#include "ui/CountFrm.h"
#include "ui/DialogBase.h"
#include "ui/DigitPropertyFrm.h"
#include "ui/DocumentWindow.h"
#include "ui/DownLoadWaveFrm.h"
#include "ui/EquationFrm.h"
#include "ui/EvaluateFrm.h"
#include "ui/HelpFrm.h"
#include "ui/InsertNodeFrm.h"
#include "ui/InstrumentSelFrm.h"
#include "ui/LinkTranscriptFrm.h"
#include "ui/LinkWait.h"
#include "ui/LowPassSetFrm.h"
#include "ui/Mainfrm.h"
#include "ui/PropertyFrm.h"
#include "ui/ReportPrinter.h"
#include "ui/ResizeWaveFrm.h"
#include "ui/SendWaveFrm.h"
#include "ui/SmoothSetFrm.h"
#include "ui/StandardWaveFrm.h"
#include "ui/StatusStrip.h"
#include "ui/Theme.h"
#include "ui/WaveMathFrm.h"
#include "ui/WindowMathFrm.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QColorDialog>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTranslator>
#include <type_traits>
#include <utility>

namespace {

void AddButton(QMessageBox& box, QMessageBox::ButtonRole role, Answer answer,
               std::string_view english, std::string_view chinese) {
    QPushButton* button = box.addButton(ToQt(PickText(english, chinese)), role);
    button->setProperty("answer", static_cast<int>(answer));
    if (box.buttons().size() == 1) box.setDefaultButton(button);
    if (answer == Answer::Cancel || box.buttons().size() == 1) box.setEscapeButton(button);
}

const char* IconName(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Exclamation:
            return "MessageExclamation";
        case MessageIcon::Question:
            return "Help";
        default:
            return "MessageInformation";
    }
}

Answer AskUser(Mainfrm& window, std::string_view text, Buttons buttons, MessageIcon icon,
               std::string_view title) {
    QWidget* dialog = QApplication::activeModalWidget();  // the box belongs above it
    QMessageBox box(dialog != nullptr ? dialog : &window);
    box.setObjectName("MessageBox");
    GiveHelpKey(box);
    box.setWindowTitle(ToQt(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(text));
    const QIcon picture = ThemedIcon(IconName(icon));
    box.setIconPixmap(
        picture.pixmap(QSize(40, 40), window.devicePixelRatioF(), QIcon::Normal, QIcon::On));
    if (buttons == Buttons::Ok || buttons == Buttons::OkCancel) {
        AddButton(box, QMessageBox::AcceptRole, Answer::Ok, "OK", "确定");
        if (buttons == Buttons::OkCancel)
            AddButton(box, QMessageBox::RejectRole, Answer::Cancel, "Cancel", "取消");
    } else {
        AddButton(box, QMessageBox::YesRole, Answer::Yes, "&Yes", "是(&Y)");
        AddButton(box, QMessageBox::NoRole, Answer::No, "&No", "否(&N)");
        box.setEscapeButton(box.buttons().constLast());
        if (buttons == Buttons::YesNoCancel)
            AddButton(box, QMessageBox::RejectRole, Answer::Cancel, "Cancel", "取消");
    }
    box.exec();
    const QAbstractButton* pressed = box.clickedButton();
    return pressed ? static_cast<Answer>(pressed->property("answer").toInt()) : Answer::Cancel;
}

// "Text Files (.txt)|*.txt|..." becomes one line for each pair, "Text Files (*.txt)".
QStringList FilterLines(const std::string& filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList lines;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        lines << parts[i].section('(', 0, 0).trimmed() + " (" + parts[i + 1] + ")";
    return lines;
}

// The dialog adds its suffix only to names without any; what is asked about must be the file that
// is written.
std::string PickedPath(const QFileDialog& dialog, const FileChoice& choice) {
    QString path = dialog.selectedFiles().constFirst();
    const QString ending = '.' + dialog.defaultSuffix();
    if (choice.ConfirmReplace && !path.endsWith(ending, Qt::CaseInsensitive)) path += ending;
    return path.toStdString();
}

std::string PickFile(Mainfrm& window, const FileChoice& choice) {
    QFileDialog dialog(&window, ToQt(choice.Title));
    dialog.setObjectName("FileDialog");
    GiveHelpKey(dialog);
    QStringList lines = FilterLines(choice.Filter);
    if (!choice.Save && lines.size() > 1) {
        QString all;
        for (const QString& line : lines) all += line.section('(', -1).chopped(1) + ' ';
        lines.prepend(ToQt(PickText("All waveform files", "所有波形文件")) + " (" + all.trimmed() +
                      ")");
    }
    dialog.setNameFilters(lines);
    if (!choice.Folder.empty()) dialog.setDirectory(ToQt(choice.Folder));
    dialog.setAcceptMode(choice.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(choice.Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // Whether a file may be overwritten is asked below, or where it is saved.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (choice.Save) {
        const auto suffixOf = [](const QString& line) { return line.section("*.", -1).chopped(1); };
        dialog.selectFile(ToQt(choice.Name));
        dialog.selectNameFilter(lines.value(choice.FilterIndex));
        dialog.setDefaultSuffix(suffixOf(lines.value(choice.FilterIndex)));
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                         [&](const QString& line) { dialog.setDefaultSuffix(suffixOf(line)); });
    }
    std::string path;
    do {
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
        path = PickedPath(dialog, choice);
    } while (choice.ConfirmReplace && !MayReplaceFile(path));
    if (choice.Save)
        choice.FilterIndex = static_cast<std::int32_t>(lines.indexOf(dialog.selectedNameFilter()));
    return path;
}

std::optional<std::uint32_t> PickColour(Mainfrm& window, std::string_view title,
                                        std::uint32_t colour) {
    QColorDialog dialog(QColor::fromRgb(colour), &window);
    dialog.setObjectName("ColourDialog");
    GiveHelpKey(dialog);
    dialog.setWindowTitle(ToQt(title));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    for (QAbstractSpinBox* box : dialog.findChildren<QAbstractSpinBox*>())
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    bool usual = false;
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
        QPushButton* button = buttons->addButton(ToQt(PickText("&Default Colour", "默认颜色(&D)")),
                                                 QDialogButtonBox::ResetRole);
        QObject::connect(button, &QPushButton::clicked, &dialog, [&] {
            usual = true;
            dialog.accept();
        });
    }
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return usual ? UsualColour : dialog.currentColor().rgb() & 0xFFFFFFU;
}

// A dialog over a minimised window, as from the tray, would not be seen.
template <typename Frm>
int RunModal(Mainfrm* main, std::int16_t argument) {
    QWidget* parent = main->isMinimized() ? nullptr : main;
    if constexpr (std::is_constructible_v<Frm, QWidget*, int>)
        return Frm(parent, argument).exec();
    else
        return Frm(parent).exec();
}

// The dialogs of the link are one window for both kinds of waveforms.
template <typename Frm, const auto& Kind>
int RunKind(Mainfrm* parent, std::int16_t) {
    return Frm(Kind, parent).exec();
}

// Stands beside the main window; there is nothing to confirm.
int ShowTranscript(Mainfrm* parent, std::int16_t) {
    LinkTranscriptFrm::ShowOver(parent);
    return QDialog::Rejected;
}

constexpr std::pair<std::string_view, int (*)(Mainfrm*, std::int16_t)> Dialogs[] = {
    {"PropertyFrm", RunModal<PropertyFrm>},
    {"StandardWaveFrm", RunModal<StandardWaveFrm>},
    {"EquationFrm", RunModal<EquationFrm>},
    {"ResizeWaveFrm", RunModal<ResizeWaveFrm>},
    {"WaveMathFrm", RunModal<WaveMathFrm>},
    {"WindowMathFrm", RunModal<WindowMathFrm>},
    {"LowPassSetFrm", RunModal<LowPassSetFrm>},
    {"SmoothSetFrm", RunModal<SmoothSetFrm>},
    {"CommunicateSettingFrm", RunModal<CommunicateSettingFrm>},
    {"InstrumentSelFrm", RunModal<InstrumentSelFrm>},
    {"SendAnalogWaveFrm", RunKind<SendWaveFrm, SendAnalogKind>},
    {"SendDigitWaveFrm", RunKind<SendWaveFrm, SendDigitKind>},
    {"DownLoadWaveFrm", RunKind<DownLoadWaveFrm, UploadAnalogKind>},
    {"DownLoadDigitWaveFrm", RunKind<DownLoadWaveFrm, UploadDigitKind>},
    {"DigitPropertyFrm", RunModal<DigitPropertyFrm>},
    {"InsertNodeFrm", RunModal<InsertNodeFrm>},
    {"ArbitraryValueFrm", RunModal<ArbitraryValueFrm>},
    {"CountFrm", RunModal<CountFrm>},
    {"EvaluateFrm", RunModal<EvaluateFrm>},
    {"LinkTranscriptFrm", ShowTranscript},
    {"AboutFrm", RunModal<AboutFrm>},
};

bool RunWindow(Mainfrm& window, std::string_view name, std::int16_t argument) {
    for (const auto& [known, run] : Dialogs)
        if (known == name) return run(&window, argument) == QDialog::Accepted;
    return false;
}

// The help for a box without a page of its own is that of the dialog or document below it.
std::string WindowInUse(const Mainfrm& window) {
    const QWidget* front = QApplication::activeModalWidget();
    if (front == nullptr) front = qobject_cast<QDialog*>(QApplication::activeWindow());
    for (; front != nullptr; front = front->parentWidget()) {
        std::string name = front->objectName().toStdString();
        if (HelpPageOf(name) != HelpPages().front().Name) return name;
    }
    const DocumentWindow* document = window.Window(window.ActiveTag());
    return (document != nullptr ? document->objectName() : window.objectName()).toStdString();
}

// The file dialog and the menus of edit boxes come from Qt and have their texts in its catalogue.
void TranslateQt() {
    static QTranslator translator;
    QCoreApplication::removeTranslator(&translator);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (UseEnglish == 0 && translator.load("qtbase_zh_CN", folder))
        QCoreApplication::installTranslator(&translator);
}

}  // namespace

void InstallHost(Mainfrm& window) {
    Mainfrm* main = &window;
    Host& host = TheHost();
    host.ShowBox = [main](std::string_view text, Buttons buttons, MessageIcon icon,
                          std::string_view title) {
        return AskUser(*main, text, buttons, icon, title);
    };
    host.ChooseFile = [main](const FileChoice& choice) { return PickFile(*main, choice); };
    host.ChooseColour = [main](std::string_view title, std::uint32_t colour) {
        return PickColour(*main, title, colour);
    };
    host.ShowHelp = [main](std::string_view name) {
        HelpFrm::ShowOver(main, name.empty() ? WindowInUse(*main) : std::string(name));
    };
    host.RunReport = [main](const Report& report, bool preview) {
        return RunReport(main, report, preview);
    };
    host.PrinterResolution = PrinterResolution;
    host.SetUpPrinter = [main] { SetUpPrinter(main); };
    host.RunDialog = [main](std::string_view name, std::int16_t argument) {
        return RunWindow(*main, name, argument);
    };
    host.OpenWindow = [main](std::int16_t tag) { main->OpenWindow(tag); };
    host.ActiveWindowTag = [main] { return main->ActiveTag(); };
    host.ShowPlot = [main](std::int16_t tag) { main->ShowPlot(tag); };
    host.ShowTitle = [main](std::int16_t tag) { main->ShowTitle(tag); };
    host.RefreshCommands = [main] { main->RefreshCommands(); };
    host.ApplyLanguage = [main] {
        TranslateQt();
        main->ApplyLanguage();
        if (auto* transcript = main->findChild<LinkTranscriptFrm*>()) transcript->ApplyTexts();
        if (auto* help = main->findChild<HelpFrm*>()) help->ApplyTexts();
    };
    host.ShowStatusText = [main](std::string_view label, std::string_view text) {
        main->Status()->ShowText(ToQt(label), ToQt(text));
    };
    host.ShowEntries = [main](std::int16_t tag) {
        if (main->ActiveTag() == tag) main->Status()->ShowEntries(tag);
    };
    host.PopupMenu = [main](std::string_view menu) { main->PopupMenu(ToQt(menu), QCursor::pos()); };
    host.ShowProgress = [main](std::int64_t done, std::int64_t total) {
        if (main->Status()->ShowProgress(done, total))
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    host.Wait = WaitFor;
    host.Pump = PumpEvents;
    host.AwaitEvent = AwaitEvent;
    host.HoldInput = HoldInput;
    host.ShowLink = [main] { main->ShowLink(); };
    host.ArrangeWindows = [main](WindowArrangement kind) { main->ArrangeWindows(kind); };
    host.ShowEditor = [main] { main->ShowEditor(); };
    host.CloseMainWindow = [main] { main->close(); };
}

std::vector<std::string_view> DialogNames() {
    std::vector<std::string_view> names;
    for (const auto& [name, run] : Dialogs) names.push_back(name);
    return names;
}
