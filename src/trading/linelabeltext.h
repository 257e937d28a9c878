#ifndef LINELABELTEXT_H
#define LINELABELTEXT_H

#include <QString>

// Text of an order or position line's box: "  1.5K @ 1.23450".
class LineLabelText
{
public:
    // `decimals` <= 0 prints the price with "%f", trailing zeros removed;
    // more than 15 decimals print as 15 (a double carries no more).
    static QString build(long count, double price, int decimals);
    // The count with up to three K/M/B steps, sign kept: 1500 -> "1.5K".
    static QString countText(long count);
    // "%f" with trailing zeros (and then a trailing '.') removed.
    static QString trimmed(double value);
};

#endif // LINELABELTEXT_H
