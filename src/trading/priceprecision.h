#ifndef PRICEPRECISION_H
#define PRICEPRECISION_H

// The number of price decimals a panel shows. A price line on a plot that
// offers this prints its box text with that many decimals.
class PricePrecision
{
public:
    virtual ~PricePrecision() = default;
    virtual int priceDecimals() const = 0;
};

#endif // PRICEPRECISION_H
