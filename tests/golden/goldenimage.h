// The committed images of the golden scenes: exact comparison, the diff a
// reviewer looks at, and lossless files kept small.
#ifndef GOLDENIMAGE_H
#define GOLDENIMAGE_H

#include <QImage>
#include <QString>

namespace goldenimage {

// Pixels that differ; where the sizes differ, every pixel outside the
// common part counts as well.
int countDifferences(const QImage &expected, const QImage &actual);

// The larger of the two sizes: differing pixels magenta, the others a
// dimmed copy of `expected` (of `actual` where `expected` has none).
QImage diff(const QImage &expected, const QImage &actual);

// An image file as 32-bit RGB; a null image and `error` set when the file
// is missing or does not decode.
QImage load(const QString &path, QString *error);

// Writes `image` losslessly with the strongest compression: as a palette
// image when it has at most 256 colours (most charts do).
bool save(const QImage &image, const QString &path, QString *error);

} // namespace goldenimage

#endif // GOLDENIMAGE_H
