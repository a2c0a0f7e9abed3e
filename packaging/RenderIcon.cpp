// render_icon SVG SIZE PNG: draws a picture as a square of SIZE pixels. Exit status 1 when the
// picture cannot be read or written.
#include <cstdlib>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int count, char** arguments) {
    if (count != 4) return 1;
    QSvgRenderer picture(QString::fromLocal8Bit(arguments[1]));
    const int size = std::atoi(arguments[2]);
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    if (!picture.isValid() || image.isNull()) return 1;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    return image.save(QString::fromLocal8Bit(arguments[3]), "PNG") ? 0 : 1;
}
