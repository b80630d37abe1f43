// SPDX-License-Identifier: MIT
// Draws an SVG as the PNG files that the library carries: render-icon IN.svg OUT.png makes OUT.png
// in the picture's own size and OUT@2x.png in twice that. Run by the build.
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <cstdio>

namespace {

bool Draw(QSvgRenderer &picture, int scale, const QString &path)
{
    QImage image(picture.defaultSize() * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    return image.save(path, "PNG");
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: render-icon IN.svg OUT.png\n", stderr);
        return 2;
    }
    QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
    const QString path = QString::fromLocal8Bit(argv[2]);
    QString double_path = path;
    double_path.replace(QLatin1String(".png"), QLatin1String("@2x.png"));
    if (picture.isValid() && Draw(picture, 1, path) && Draw(picture, 2, double_path))
        return 0;
    std::fprintf(stderr, "render-icon: cannot draw %s\n", argv[1]);
    return 1;
}
