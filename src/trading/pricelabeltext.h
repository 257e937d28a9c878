#ifndef PRICELABELTEXT_H
#define PRICELABELTEXT_H

#include <QString>

// Price texts of the axis and of price-line labels: "%f", then cut to a
// fixed width (never rounded beyond what "%f" does), independent of the
// chart's price precision.
class PriceLabelText
{
public:
    static QString format(double price);
    static QString truncate(const QString &text);
};

#endif // PRICELABELTEXT_H
