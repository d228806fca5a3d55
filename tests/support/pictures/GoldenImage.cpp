#include "support/pictures/GoldenImage.h"

#include "support/TestFailure.h"

#include <QDir>
#include <QTest>
#include <QWidget>

namespace {

constexpr int kChannelTolerance = 16;
constexpr qint64 kPixelsPerStray = 2000;

QString goldenPath(const QString& name)
{
    return QStringLiteral(KEST_SOURCE_DIR "/tests/golden/%1.png").arg(name);
}

/// Path in the build tree; its folder exists afterwards.
QString outPath(const QString& name, QLatin1String kind)
{
    const QDir dir(QStringLiteral(KEST_GOLDEN_OUT));
    dir.mkpath(QStringLiteral("."));
    return dir.filePath(QStringLiteral("%1.%2.png").arg(name, kind));
}

bool differs(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) > kChannelTolerance
        || qAbs(qGreen(a) - qGreen(b)) > kChannelTolerance
        || qAbs(qBlue(a) - qBlue(b)) > kChannelTolerance
        || qAbs(qAlpha(a) - qAlpha(b)) > kChannelTolerance;
}

/// Paints the differing pixels red over a pale copy of the golden image; returns their number.
qint64 compare(const QImage& golden, const QImage& image, QImage& diff)
{
    diff = QImage(golden.size(), QImage::Format_RGB32);
    qint64 count = 0;
    for (int y = 0; y < golden.height(); ++y) {
        for (int x = 0; x < golden.width(); ++x) {
            const QRgb expected = golden.pixel(x, y);
            const bool stray = differs(expected, image.pixel(x, y));
            count += stray ? 1 : 0;
            const int grey = 192 + qGray(expected) / 4;
            diff.setPixel(x, y, stray ? qRgb(255, 0, 0) : qRgb(grey, grey, grey));
        }
    }
    return count;
}

bool mismatch(const QImage& image, const QString& name, const QString& why)
{
    const QString out = outPath(name, QLatin1String("out"));
    image.save(out);
    reportTestFailure(
        QStringLiteral("%1 differs from its golden image: %2 See %3.").arg(name, why, out));
    return false;
}

bool update(const QImage& image, const QString& name)
{
    QDir().mkpath(QStringLiteral(KEST_SOURCE_DIR "/tests/golden"));
    if (image.save(goldenPath(name)))
        return true;
    reportTestFailure(QStringLiteral("Cannot write the golden image %1.").arg(goldenPath(name)));
    return false;
}

} // namespace

bool goldenImage(const QImage& given, const QString& name)
{
    const QImage image = given.convertToFormat(QImage::Format_ARGB32);
    if (qEnvironmentVariable("KEST_UPDATE_GOLDEN") == QLatin1String("1"))
        return update(image, name);

    const QImage golden = QImage(goldenPath(name)).convertToFormat(QImage::Format_ARGB32);
    if (golden.isNull())
        return mismatch(image, name, QStringLiteral("there is no golden image yet."));
    if (golden.size() != image.size())
        return mismatch(image, name,
                        QStringLiteral("it is %1 x %2 pixels instead of %3 x %4.")
                            .arg(image.width())
                            .arg(image.height())
                            .arg(golden.width())
                            .arg(golden.height()));
    QImage diff;
    const qint64 strays = compare(golden, image, diff);
    const qint64 pixels = qint64(golden.width()) * golden.height();
    if (strays * kPixelsPerStray <= pixels)
        return true;
    diff.save(outPath(name, QLatin1String("diff")));
    return mismatch(image, name, QStringLiteral("%1 of %2 pixels.").arg(strays).arg(pixels));
}

bool goldenImage(QWidget* widget, const QString& name)
{
    if (!widget->isVisible())
        widget->show();
    // The picture of an active window; focus frames and selections look different in an inactive
    // one.
    QWidget* window = widget->window();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window)) {
        reportTestFailure(QStringLiteral("%1 never became the active window.").arg(name));
        return false;
    }
    return goldenImage(widget->grab().toImage(), name);
}
