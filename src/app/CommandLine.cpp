#include "app/CommandLine.h"

#include <cstdio>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>

namespace {

constexpr int WrongUse = 2;  // exit status

// The toolkit takes its own options out when the application is made, which needs a display. They
// are named here, so that an option of nobody is told of even where there is none.
void AddToolkitOptions(QCommandLineParser& parser) {
    const auto add = [&](const char* name, const char* value) {
        QCommandLineOption option(name, {}, value);
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    };
    for (const char* name :
         {"display", "geometry", "icon", "name", "platform", "platformpluginpath", "platformtheme",
          "plugin", "qwindowgeometry", "qwindowicon", "qwindowtitle", "session", "style",
          "stylesheet", "title"})
        add(name, "value");
    for (const char* name : {"dograb", "nograb", "reverse", "sync", "widgetcount"}) add(name, "");
}

void PrepareParser(QCommandLineParser& parser) {
    // Those of the toolkit have one dash and a whole word behind it, such as -platform.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription("Desktop editor for arbitrary waveforms.");
    parser.addPositionalArgument("file", "Waveforms to open: .txt, .csv, .rdf, .DRIG, .wfm.",
                                 "[file...]");
    parser.addOption({{"h", "help"}, "Shows this text."});
    parser.addOption({{"v", "version"}, "Shows the version."});
    parser.addOption(
        {"tour", "Drives the windows through the main job, leaves pictures there.", "folder"});
    QCommandLineOption untilPainted("until-painted");  // bench/whole measures the start with it
    untilPainted.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(untilPainted);
    AddToolkitOptions(parser);
}

// An address names its special characters by their codes; in a path they stand for themselves.
QString PathOf(const QString& argument) {
    const bool isAddress = argument.startsWith("file://", Qt::CaseInsensitive);
    const QString path = isAddress ? QUrl(argument).toLocalFile() : argument;
    return QFileInfo(path).absoluteFilePath();
}

}  // namespace

CommandLine ReadCommandLine(int argc, char** argv) {
    const QCoreApplication app(argc, argv);  // the parser asks it for the program's name
    CommandLine line;
    QCommandLineParser parser;
    PrepareParser(parser);
    if (!parser.parse(QCoreApplication::arguments())) {
        std::fprintf(stderr, "tidemark: %s\nTry \"tidemark --help\".\n",
                     parser.errorText().toUtf8().constData());
        line.ExitStatus = WrongUse;
        return line;
    }
    if (parser.isSet("help") || parser.isSet("version")) {
        const QString answer =
            parser.isSet("help") ? parser.helpText() : QString("TideMark " TIDEMARK_VERSION "\n");
        std::fputs(answer.toUtf8().constData(), stdout);
        line.ExitStatus = 0;
        return line;
    }
    line.TourFolder = parser.value("tour");
    line.UntilPainted = parser.isSet("until-painted");
    for (const QString& argument : parser.positionalArguments()) line.Files << PathOf(argument);
    return line;
}
