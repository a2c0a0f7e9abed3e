#include "ui/HelpBrowser.h"

#include "frame/HelpPages.h"
#include "frame/LoadLanguageCode.h"
#include "platform/ProgramFolder.h"
#include "platform/qt/QtText.h"
#include "ui/Theme.h"

#include <algorithm>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QTextFrame>
#include <QWheelEvent>
#include <utility>

// Pages have addresses of their own, "help:/zoom.html#pan", whatever the language: a change of
// language reads the same address from the other folder, and the history stays good. No address of
// another kind is ever read.
//
// Pictures are laid out and drawn here, since the view's own handling neither keeps them within the
// text nor smooths them.

namespace {

constexpr int ColumnLetters = 75;  // of usual width in a line
constexpr int PageMargin = 32;     // pixels beside the text, at least
constexpr int EndMargin = 24;      // above and below it
constexpr int MissingHeight = 64;  // of the frame in place of a picture
constexpr int UsualEnlarged = 1;   // points above the program's font
constexpr std::pair EnlargedRange = {-2, 14};

// Sizes of heads are steps of the text's size, so that all of it grows together.
QString PageStyle() {
    const ChromePalette& chrome = CurrentChrome();
    const QColor ground = MixColours(chrome.base, chrome.line, 0.45);
    const QString sheet = QStringLiteral(
        "body { line-height: 130%; }"
        "h1 { font-size: x-large; font-weight: 600; margin-top: 0; margin-bottom: 12px; }"
        "h2 { font-size: large; font-weight: 600; margin-top: 24px; margin-bottom: 8px; }"
        "h3 { font-size: medium; font-weight: 600; margin-top: 16px; margin-bottom: 4px; }"
        "p { margin-top: 0; margin-bottom: 10px; }"
        "ul, ol { margin-top: 0; margin-bottom: 10px; margin-left: 20px; -qt-list-indent: 0; }"
        "li { margin-bottom: 4px; }"
        "a { color: %1; text-decoration: underline; }"
        "table { margin-top: 4px; margin-bottom: 14px; border-collapse: collapse;"
        " border: 1px solid %2; }"
        "th { padding: 6px 12px; border: 1px solid %2; background-color: %3; text-align: left;"
        " font-weight: 600; }"
        "td { padding: 6px 12px; border: 1px solid %2; }"
        "code, kbd, pre { background-color: %3; font-family: 'DejaVu Sans Mono', monospace; }");
    return sheet.arg(chrome.accent.name(), chrome.line.name(), ground.name());
}

QString MissingPage(const QString& file) {
    const QString text = ToQt(TextOf("HelpFrm", "MissingTxt"));
    return QStringLiteral("<h1>%1</h1><p>%2</p>")
        .arg(ToQt(TextOf("HelpFrm", "")), text.arg(file).toHtmlEscaped());
}

QString NameOf(const QUrl& url) {
    return url.path().section('/', -1).section('.', 0, 0);
}

bool IsPage(const QUrl& url) {
    const std::string name = NameOf(url).toStdString();
    return url.scheme() == QLatin1String("help") &&
           url.path() == QLatin1Char('/') + NameOf(url) + QLatin1String(".html") &&
           std::ranges::any_of(HelpPages(),
                               [&](const HelpPage& page) { return page.Name == name; });
}

// The picture of an address; null where there is none, or where it lies outside of the help.
QImage ReadPicture(const QUrl& url) {
    const QString root = QFileInfo(ToQt(HelpFolder())).canonicalFilePath();
    const QString file = QFileInfo(ToQt(HelpFile()) + url.path()).canonicalFilePath();
    const bool inside = !root.isEmpty() && file.startsWith(root + QLatin1Char('/'));
    return url.scheme() == QLatin1String("help") && inside ? QImage(file) : QImage();
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    setUndoRedoEnabled(false);
    document()->documentLayout()->registerHandler(QTextFormat::ImageObject, this);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::Follow);
    connect(this, &QTextBrowser::sourceChanged, this, &HelpBrowser::Arrive);
    ChangeTextSize(0);
}

void HelpBrowser::ShowPage(const QString& page) {
    const QString place = page.contains('#') ? page.section('#', 1).prepend('#') : QString();
    Follow(QStringLiteral("help:/%1.html%2").arg(page.section('#', 0, 0), place));
}

QString HelpBrowser::Page() const {
    return NameOf(shown_);
}

void HelpBrowser::ShowAgain() {
    document()->setDefaultStyleSheet(PageStyle());
    pictures_.clear();
    if (shown_.isEmpty()) return;
    QScrollBar* bar = verticalScrollBar();
    const double part = bar->maximum() > 0 ? 1.0 * bar->value() / bar->maximum() : 0.0;
    reload();
    bar->setValue(qRound(part * bar->maximum()));
}

void HelpBrowser::Follow(const QUrl& link) {
    const QUrl url = shown_.isEmpty() ? link : shown_.resolved(link);
    if (IsPage(url))
        setSource(url, QTextDocument::HtmlResource);
    else if (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
        QDesktopServices::openUrl(url);
}

// The margins belong to the page, so a new one has none yet, and its places move with them.
void HelpBrowser::Arrive(const QUrl& url) {
    shown_ = url;  // the view itself has the new address only after it has told
    FitColumn();
    MarkHits(words_);
    if (url.hasFragment()) scrollToAnchor(url.fragment());
}

QString HelpBrowser::ReadPage(const QString& name) {
    QFile file(ToQt(HelpFile()) + QLatin1Char('/') + name + QLatin1String(".html"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QVariant HelpBrowser::loadResource(int type, const QUrl& url) {
    if (type == QTextDocument::ImageResource) return ReadPicture(url);
    if (type != QTextDocument::HtmlResource || !IsPage(url)) return {};
    QString page = ReadPage(NameOf(url));
    if (page.isEmpty()) return MissingPage(ToQt(HelpFile()) + url.path());
    page.replace(QLatin1String("<table"), QLatin1String("<table width=\"100%\""));
    // The leading of text would be a share of the picture's height.
    return page.replace(QLatin1String("<p><img"),
                        QLatin1String("<p style=\"line-height: 100%\"><img"));
}

// The text stands in the middle of the window, its lines no longer than the eye finds back from.
// What is read stays where it is.
void HelpBrowser::FitColumn() {
    const int room = viewport()->width() - 2 * PageMargin;
    const int longest = ColumnLetters * QFontMetrics(font()).averageCharWidth();
    column_ = std::clamp(longest, 1, std::max(room, 1));
    const int side = std::max(PageMargin, (viewport()->width() - column_) / 2);
    QTextFrameFormat margins = document()->rootFrame()->frameFormat();
    if (margins.leftMargin() == side && margins.rightMargin() == side) return;
    const QTextCursor top = cursorForPosition(QPoint(side, 0));
    const bool moved = verticalScrollBar()->value() > 0;
    margins.setMargin(EndMargin);
    margins.setLeftMargin(side);
    margins.setRightMargin(side);
    document()->setDocumentMargin(0);
    document()->rootFrame()->setFrameFormat(margins);
    QScrollBar* bar = verticalScrollBar();
    if (moved) bar->setValue(bar->value() + cursorRect(top).top());
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    FitColumn();
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return QTextBrowser::wheelEvent(event);
    if (event->angleDelta().y() != 0) ChangeTextSize(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

void HelpBrowser::ChangeTextSize(int steps) {
    const auto [least, most] = EnlargedRange;
    enlarged_ = steps == 0 ? UsualEnlarged : std::clamp(enlarged_ + steps, least, most);
    const QTextCursor top = cursorForPosition(QPoint(viewport()->width() / 2, 0));
    QFont larger = parentWidget()->font();
    larger.setPointSizeF(larger.pointSizeF() + enlarged_);
    setFont(larger);
    FitColumn();
    if (verticalScrollBar()->value() > 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(top).top());
}

void HelpBrowser::MarkHits(const QRegularExpression& words) {
    words_ = words;
    QList<ExtraSelection> marks;
    const ChromePalette& chrome = CurrentChrome();
    QTextCharFormat format;
    format.setBackground(MixColours(chrome.base, chrome.busy, 0.35));
    QTextCursor hit(document());
    while (!words.pattern().isEmpty()) {
        hit = document()->find(words, hit);
        if (hit.isNull()) break;
        marks.append({hit, format});
    }
    setExtraSelections(marks);
}

bool HelpBrowser::GoToHit(bool forward) {
    if (words_.pattern().isEmpty()) return false;
    const QTextDocument::FindFlags way =
        forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
    const QTextCursor hit = document()->find(words_, textCursor(), way);
    if (hit.isNull()) return false;
    setTextCursor(hit);
    ensureCursorVisible();
    return true;
}

void HelpBrowser::GoToEnd(bool last) {
    moveCursor(last ? QTextCursor::End : QTextCursor::Start);
}

QSizeF HelpBrowser::intrinsicSize(QTextDocument* page, int /*position*/,
                                  const QTextFormat& format) {
    const QUrl name(format.toImageFormat().name());
    const auto picture = page->resource(QTextDocument::ImageResource, name).value<QImage>();
    if (picture.isNull()) return {static_cast<qreal>(column_), MissingHeight};
    const QSizeF size(picture.size());
    return size.width() > column_ ? size * (column_ / size.width()) : size;
}

QPixmap HelpBrowser::Picture(const QString& name, const QSize& pixels) const {
    QPixmap& drawn = pictures_[name];
    if (drawn.size() == pixels) return drawn;
    const auto picture =
        document()->resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>();
    drawn =
        QPixmap::fromImage(picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return drawn;
}

// A picture, or where it is missing a frame with what it would show.
void HelpBrowser::drawObject(QPainter* painter, const QRectF& place, QTextDocument* page,
                             int /*position*/, const QTextFormat& format) {
    const QString name = format.toImageFormat().name();
    const QRect frame = place.toRect();
    const QSize pixels = (QSizeF(frame.size()) * painter->device()->devicePixelRatioF()).toSize();
    const ChromePalette& chrome = CurrentChrome();
    if (page->resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>().isNull()) {
        painter->setPen(QPen(chrome.dim, 1, Qt::DashLine));
        painter->drawText(frame.adjusted(12, 0, -12, 0), Qt::AlignCenter | Qt::TextWordWrap,
                          format.stringProperty(QTextFormat::ImageAltText));
        painter->drawRect(frame.adjusted(0, 0, -1, -1));
        return;
    }
    painter->drawPixmap(frame, Picture(name, pixels));
    painter->setPen(chrome.line);
    painter->drawRect(frame.adjusted(0, 0, -1, -1));
}
