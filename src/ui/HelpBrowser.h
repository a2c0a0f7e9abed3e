#pragma once
// A page of the help. It reads from the help's folder and from nowhere else, shows pictures no
// wider than the text, and marks what was searched for.
#include <QHash>
#include <QPixmap>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTextObjectInterface>

class HelpBrowser : public QTextBrowser, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
public:
    explicit HelpBrowser(QWidget* parent);

    /// Goes to a page by its name; "zoom#pan" is a place in it. A page that is not there tells so.
    void ShowPage(const QString& page);
    /// The page that is shown, without the place.
    QString Page() const;
    /// Reads the page anew: its language or the colours have changed.
    void ShowAgain();

    /// The file of a page in the current language, as it stands.
    static QString ReadPage(const QString& name);

    /// Marks all that fits; an empty pattern takes the marks away.
    void MarkHits(const QRegularExpression& words);
    /// Selects the next hit behind the cursor, or the one before it; false where there is none.
    bool GoToHit(bool forward);
    /// Puts the cursor before the page's first letter, or behind its last one.
    void GoToEnd(bool last);

    /// Makes the text larger by steps of a point; 0 gives it its usual size.
    void ChangeTextSize(int steps);

    QSizeF intrinsicSize(QTextDocument* page, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* page, int position,
                    const QTextFormat& format) override;

protected:
    QVariant loadResource(int type, const QUrl& url) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void FitColumn();
    void Arrive(const QUrl& url);
    void Follow(const QUrl& link);
    QPixmap Picture(const QString& name, const QSize& pixels) const;

    QUrl shown_;
    QRegularExpression words_;
    int enlarged_ = 0;                          // points
    int column_ = 0;                            // width of the text, pixels
    mutable QHash<QString, QPixmap> pictures_;  // at the size they were last drawn
};
