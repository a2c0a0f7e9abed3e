#include "ui/Theme.h"

#include <QApplication>
#include <QFile>
#include <QFontInfo>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QStyleFactory>
#include <QSvgRenderer>

// A theme is a table of ten colours. The style sheet names them between dollar signs; a few more
// are mixed from them here, so that both chromes keep the same steps between ground, raised
// ground and text.

namespace {

const ChromePalette DarkChrome = {
    QColor(0x20262C), QColor(0x2A3138), QColor(0x171C21), QColor(0x3A434C), QColor(0xD5DDE3),
    QColor(0x8C99A5), QColor(0x3BA7FF), QColor(0x4CD07D), QColor(0xFFC93C), QColor(0xFF5C5C)};
const ChromePalette LightChrome = {
    QColor(0xF4F6F8), QColor(0xFFFFFF), QColor(0xE6EAEE), QColor(0xCBD3DA), QColor(0x1B242C),
    QColor(0x5B6873), QColor(0x0B6BC2), QColor(0x23924F), QColor(0xA87400), QColor(0xE03A3A)};

Chrome TheChrome = Chrome::Dark;

constexpr double DisabledShare = 0.45;  // what a disabled icon keeps of its opacity

QColor OnAccent() {
    return TheChrome == Chrome::Dark ? QColor(0x0B1015) : QColor(0xFFFFFF);
}

QColor FieldColour() {
    const ChromePalette& chrome = CurrentChrome();
    return TheChrome == Chrome::Dark ? chrome.strip : chrome.panel;
}

QColor FaintColour() {
    const ChromePalette& chrome = CurrentChrome();
    return MixColours(chrome.base, chrome.dim, 0.7);
}

QString FilledStyleSheet() {
    QFile file(QStringLiteral(":/theme/Chrome.qss"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QString sheet = QString::fromUtf8(file.readAll());
    const ChromePalette& chrome = CurrentChrome();
    const std::pair<const char*, QColor> colours[] = {
        {"$base$", chrome.base},
        {"$panel$", chrome.panel},
        {"$strip$", chrome.strip},
        {"$line$", chrome.line},
        {"$text$", chrome.text},
        {"$dim$", chrome.dim},
        {"$accent$", chrome.accent},
        {"$onaccent$", OnAccent()},
        {"$accenthover$", MixColours(chrome.accent, chrome.text, 0.2)},
        {"$faint$", FaintColour()},
        {"$field$", FieldColour()},
        {"$button$", chrome.panel},
        {"$raised$", MixColours(chrome.panel, chrome.line, 0.6)},
        {"$thumb$", MixColours(chrome.line, chrome.dim, 0.65)},
        {"$tinted$", MixColours(chrome.base, chrome.accent, 0.28)},
    };
    for (const auto& [name, colour] : colours) sheet.replace(QLatin1String(name), colour.name());
    sheet.replace(QLatin1String("$chrome$"),
                  QLatin1String(TheChrome == Chrome::Dark ? "Dark" : "Light"));
    return sheet;
}

QPalette PaletteOfChrome() {
    const ChromePalette& chrome = CurrentChrome();
    QPalette palette;
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, chrome.base},
        {QPalette::WindowText, chrome.text},
        {QPalette::Base, FieldColour()},
        {QPalette::AlternateBase, chrome.panel},
        {QPalette::Text, chrome.text},
        {QPalette::PlaceholderText, chrome.dim},
        {QPalette::Button, chrome.panel},
        {QPalette::ButtonText, chrome.text},
        {QPalette::BrightText, chrome.fault},
        {QPalette::Light, MixColours(chrome.panel, chrome.line, 0.6)},
        {QPalette::Midlight, chrome.panel},
        {QPalette::Mid, chrome.line},
        {QPalette::Dark, chrome.line},
        {QPalette::Shadow, chrome.strip},
        {QPalette::Highlight, chrome.accent},
        {QPalette::HighlightedText, OnAccent()},
        {QPalette::Link, chrome.accent},
        {QPalette::LinkVisited, chrome.dim},
        {QPalette::ToolTipBase, chrome.panel},
        {QPalette::ToolTipText, chrome.text},
    };
    for (const auto& [role, colour] : roles) palette.setColor(role, colour);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, FaintColour());
    return palette;
}

// The desktop's face first; a simplified-Chinese one behind it, since the fallback of the font
// system may pick Japanese shapes.
QFont FontWithChinese(QFont font) {
    font.setFamilies({QFontInfo(font).family(), QStringLiteral("Noto Sans CJK SC"),
                      QStringLiteral("Noto Sans SC"), QStringLiteral("WenQuanYi Micro Hei")});
    return font;
}

// Renders a drawing when it is first needed at a size, and keeps it in the pixmap cache.
class TintedIconEngine final : public QIconEngine {
public:
    explicit TintedIconEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap drawing = Drawing((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        drawing.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), drawing);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return Drawing(size, mode, state);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal /*scale*/) override {
        return Drawing(size, mode, state);  // the size is already in device pixels
    }
    QIconEngine* clone() const override { return new TintedIconEngine(name_); }
    bool isNull() override { return !QFile::exists(Path()); }

private:
    QString Path() const { return QStringLiteral(":/icons/%1.svg").arg(name_); }

    QPixmap Drawing(const QSize& size, QIcon::Mode mode, QIcon::State state) const {
        const ChromePalette& chrome = CurrentChrome();
        const bool disabled = mode == QIcon::Disabled;
        QColor tint = state == QIcon::On ? chrome.accent : chrome.text;
        if (disabled) tint = chrome.dim;
        const QString key = QStringLiteral("tint:%1:%2x%3:%4:%5")
                                .arg(name_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(tint.rgb())
                                .arg(disabled);
        QPixmap drawing;
        if (size.isEmpty() || QPixmapCache::find(key, &drawing)) return drawing;
        QSvgRenderer svg(Path());
        svg.setAspectRatioMode(Qt::KeepAspectRatio);
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        svg.render(&painter, QRectF(QPointF(0, 0), size));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        if (disabled) tint.setAlphaF(static_cast<float>(DisabledShare));
        painter.fillRect(image.rect(), tint);
        painter.end();
        drawing = QPixmap::fromImage(std::move(image));
        QPixmapCache::insert(key, drawing);
        return drawing;
    }

    QString name_;
};

}  // namespace

Chrome ChooseChrome(const QPalette& desktop, bool desktopSpeaks, const QByteArray& wish) {
    if (wish == "dark") return Chrome::Dark;
    if (wish == "light") return Chrome::Light;
    if (!desktopSpeaks) return Chrome::Dark;
    const bool lightText = desktop.color(QPalette::WindowText).lightness() >
                           desktop.color(QPalette::Window).lightness();
    return lightText ? Chrome::Dark : Chrome::Light;
}

const ChromePalette& CurrentChrome() {
    return TheChrome == Chrome::Dark ? DarkChrome : LightChrome;
}

void ApplyTheme(QApplication& app) {
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(theme);
    static const QPalette desktop = QApplication::palette();
    static const QFont desktopFont = QApplication::font();
    TheChrome = ChooseChrome(desktop, !qEnvironmentVariableIsEmpty("XDG_CURRENT_DESKTOP"),
                             qgetenv("TIDEMARK_CHROME"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(PaletteOfChrome());
    QApplication::setFont(FontWithChinese(desktopFont));
    app.setStyleSheet(FilledStyleSheet());
}

QIcon ThemedIcon(const QString& name) {
    return QIcon(new TintedIconEngine(name));
}

QColor SignColour(bool fault) {
    const ChromePalette& chrome = CurrentChrome();
    return MixColours(fault ? chrome.fault : chrome.busy, chrome.text, 0.25);
}

QColor MixColours(const QColor& from, const QColor& to, double share) {
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}
