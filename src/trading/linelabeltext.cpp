#include "linelabeltext.h"

#include <QtGlobal>

#include <cmath>

QString LineLabelText::trimmed(double value)
{
    QString text = QString::asprintf("%f", value);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text;
}

QString LineLabelText::countText(long count)
{
    static const char *const suffixes[] = {"K", "M", "B"};
    double value = std::fabs(double(count));
    QString suffix;
    for (int used = 0; value >= 1000.0 && used < 3; ++used) {
        value /= 1000.0;
        suffix = QLatin1String(suffixes[used]);
    }
    if (count < 0)
        value = -value;
    return trimmed(value) + suffix;
}

QString LineLabelText::build(long count, double price, int decimals)
{
    const QString priceText = decimals > 0
        ? QString::asprintf("%.*f", qMin(decimals, 15), price)
        : trimmed(price);
    return QStringLiteral("  %1 @ ").arg(countText(count)) + priceText;
}
