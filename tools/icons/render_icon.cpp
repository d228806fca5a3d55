// Draws an SVG picture into a square PNG: render_icon IN.svg SIZE OUT.png [MARGIN]. With a margin,
// so many units of the picture are left out on each side; a picture made for 24 pixels serves 22
// with a margin of 1. Pictures without texts need no fonts, and so no window system.

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {
int fail(const QString& sentence)
{
    std::fprintf(stderr, "render_icon: %s\n", sentence.toUtf8().constData());
    return 1;
}
} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const int size = arguments.value(1).toInt();
    if (arguments.size() < 3 || arguments.size() > 4 || size < 1)
        return fail(QStringLiteral("expected IN.svg SIZE OUT.png [MARGIN]"));
    QSvgRenderer picture(arguments[0]);
    if (!picture.isValid())
        return fail(QStringLiteral("%1 is no SVG picture").arg(arguments[0]));
    const double margin = arguments.value(3).toDouble();
    picture.setViewBox(picture.viewBoxF().adjusted(margin, margin, -margin, -margin));

    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    if (!image.save(arguments[2]))
        return fail(QStringLiteral("%1 cannot be written").arg(arguments[2]));
    return 0;
}
