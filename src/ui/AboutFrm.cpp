#include "ui/AboutFrm.h"

#include "link/ConnectFuncBox.h"
#include "link/LinkWork.h"
#include "platform/qt/QtText.h"
#include "ui/Theme.h"

#include <fftw3.h>
#include <libusb.h>
#include <muParser.h>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QIcon>
#include <QSysInfo>
#include <QVBoxLayout>

// Versions are those of the libraries that run, not of those that the program was built with.

namespace {

constexpr int LogoSize = 64;  // pixels
constexpr int TextWidth = 424;
constexpr int LogoGap = 20;

QString UsbVersion() {
    const libusb_version* version = libusb_get_version();
    return QStringLiteral("%1.%2.%3").arg(version->major).arg(version->minor).arg(version->micro);
}

QString FftVersion() {
    return QString::fromLatin1(fftw_version).section('-', 1, 1);  // "fftw-3.3.10-sse2-avx"
}

QString System() {
    return QSysInfo::prettyProductName() + ", " + QSysInfo::currentCpuArchitecture() + ", " +
           QGuiApplication::platformName();
}

}  // namespace

AboutFrm::AboutFrm(QWidget* parent) : DialogBase("AboutFrm", parent) {
    facts_ = {{"Qt", QString::fromLatin1(qVersion())},
              {"FFTW", FftVersion()},
              {"muParser",
               QString::fromStdString(mu::Parser().GetVersion(mu::pviBRIEF)).section(' ', 0, 0)},
              {"libusb", UsbVersion()},
              {RowText("SystemInfo"), System()}};
    if (Link.IsConnected)
        facts_.emplace_back(RowText("InstrumentInfo"), ToQt(ModelName(Link.ConnectedModel)));
    auto* logo = new QLabel(this);
    logo->setPixmap(QIcon(QStringLiteral(":/icons/tidemark.svg"))
                        .pixmap(QSize(LogoSize, LogoSize), devicePixelRatioF()));
    auto* halves = new QHBoxLayout;
    halves->setSpacing(LogoGap);
    halves->addWidget(logo, 0, Qt::AlignTop);
    halves->addLayout(MakeTexts());
    copy_ = MakeButton("CopyAresBtn");
    connect(copy_, &QPushButton::clicked, this, &AboutFrm::CopyFacts);
    QPushButton* close = MakeButton("OkAresBtn");
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &AboutFrm::accept);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(DialogRowGap);
    buttons->addStretch(1);
    buttons->addWidget(copy_);
    buttons->addWidget(close);
    LayOut(halves, buttons);
    ApplyTexts();
    close->setFocus();
}

QLayout* AboutFrm::MakeTexts() {
    QString table;
    for (const auto& [name, value] : facts_)
        table += QStringLiteral(
                     "<tr valign='bottom'><td style='padding: 0 16px 4px 0; color: %1'>%2</td>"
                     "<td style='padding-bottom: 4px'>%3</td></tr>")
                     .arg(CurrentChrome().dim.name(), name, value.toHtmlEscaped());
    auto* texts = new QVBoxLayout;
    texts->setSpacing(DialogRowGap);
    QLabel* name = MakeText("NameTxt", QStringLiteral("TideMark"));
    name->setStyleSheet(QStringLiteral("font-size: 24px; font-weight: 600;"));
    texts->addWidget(name);
    texts->addWidget(MakeText("VersionTxt", RowText("VersionInfo").arg(TIDEMARK_VERSION)));
    texts->addWidget(MakeText("LineTxt", RowText("LineInfo")));
    texts->addWidget(MakeText("LicenceTxt", RowText("LicenceInfo")));
    QLabel* facts =
        MakeText("FactsTxt", "<table cellspacing='0' cellpadding='0'>" + table + "</table>");
    facts->setTextFormat(Qt::RichText);
    texts->addSpacing(DialogRowGap);
    texts->addWidget(facts);
    return texts;
}

QLabel* AboutFrm::MakeText(const char* name, const QString& text) {
    QLabel* label = MakeLabel(name);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setWordWrap(true);
    label->setFixedWidth(TextWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setText(text);
    return label;
}

// One line each, with the program's own version first. The button tells that it is done.
void AboutFrm::CopyFacts() {
    QString lines = QStringLiteral("TideMark %1\n").arg(TIDEMARK_VERSION);
    for (const auto& [name, value] : facts_) lines += name + ' ' + value + '\n';
    QApplication::clipboard()->setText(lines);
    copy_->setText(RowText("CopiedInfo"));
}
