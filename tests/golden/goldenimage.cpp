#include "goldenimage.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QImageWriter>

namespace goldenimage {

namespace {

const QRgb Magenta = qRgb(255, 0, 255);

QRgb pixelOr(const QImage &image, int x, int y, QRgb none)
{
    return x < image.width() && y < image.height() ? image.pixel(x, y) : none;
}

QRgb dimmed(QRgb c)
{
    return qRgb(40 + qRed(c) / 4, 40 + qGreen(c) / 4, 40 + qBlue(c) / 4);
}

// The same pixels as 8-bit palette indices, or a null image when there
// are more than 256 colours.
QImage toPalette(const QImage &image)
{
    QHash<QRgb, int> index;
    QVector<QRgb> table;
    QImage out(image.size(), QImage::Format_Indexed8);
    for (int y = 0; y < image.height(); ++y) {
        const QRgb *in = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        uchar *line = out.scanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            const QRgb c = in[x] | 0xff000000u;
            auto it = index.constFind(c);
            if (it == index.constEnd()) {
                if (table.size() == 256)
                    return QImage();
                it = index.insert(c, table.size());
                table.append(c);
            }
            line[x] = uchar(*it);
        }
    }
    out.setColorTable(table);
    return out;
}

} // namespace

int countDifferences(const QImage &expected, const QImage &actual)
{
    if (expected == actual) // the usual answer, found fast
        return 0;
    const int w = qMax(expected.width(), actual.width());
    const int h = qMax(expected.height(), actual.height());
    int count = 0;
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x)
            count += pixelOr(expected, x, y, 0) != pixelOr(actual, x, y, 1);
    }
    return count;
}

QImage diff(const QImage &expected, const QImage &actual)
{
    const int w = qMax(expected.width(), actual.width());
    const int h = qMax(expected.height(), actual.height());
    QImage out(w, h, QImage::Format_RGB32);
    for (int y = 0; y < h; ++y) {
        QRgb *line = reinterpret_cast<QRgb *>(out.scanLine(y));
        for (int x = 0; x < w; ++x) {
            const QRgb e = pixelOr(expected, x, y, 0), a = pixelOr(actual, x, y, 1);
            const bool inExpected = x < expected.width() && y < expected.height();
            line[x] = e != a ? Magenta : dimmed(inExpected ? e : a);
        }
    }
    return out;
}

QImage load(const QString &path, QString *error)
{
    if (!QFileInfo::exists(path)) {
        *error = QStringLiteral("%1 does not exist").arg(path);
        return QImage();
    }
    QImageReader reader(path);
    const QImage image = reader.read();
    if (image.isNull()) {
        *error = QStringLiteral("%1 does not load: %2").arg(path, reader.errorString());
        return QImage();
    }
    return image.convertToFormat(QImage::Format_RGB32);
}

bool save(const QImage &image, const QString &path, QString *error)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    const QImage palette = toPalette(rgb);
    QImageWriter writer(path, "png");
    writer.setQuality(0); // the PNG writer's strongest compression
    if (!writer.write(palette.isNull() ? rgb : palette)) {
        *error = QStringLiteral("cannot write %1: %2").arg(path, writer.errorString());
        return false;
    }
    return true;
}

} // namespace goldenimage
