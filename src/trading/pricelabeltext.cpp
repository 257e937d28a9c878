#include "pricelabeltext.h"

QString PriceLabelText::format(double price)
{
    return truncate(QString::asprintf("%f", price));
}

QString PriceLabelText::truncate(const QString &text)
{
    const int i = text.indexOf(QLatin1Char('.'));
    if (i < 0)
        return text;
    if (i <= 5)
        return text.left(7);
    if (i == 6)
        return text.left(6);
    return text.left(i);
}
