#ifndef VIEWCONTENT_H
#define VIEWCONTENT_H

// What a navigator needs to know about the panel it moves, beyond the Qwt
// plot it sets the scales of: the values drawn over a span of bars (the
// price scale follows them) and the candle geometry views snap to.
class ViewContent
{
public:
    virtual ~ViewContent() = default;

    // Lowest and highest value drawn over the bars [x1, x2]; false when
    // nothing is drawn there.
    virtual bool valueRange(double x1, double x2, double &low, double &high) const = 0;
    // Width in pixels of a candle when [x1, x2] fills the canvas; 8 when
    // the panel draws no candles.
    virtual double candleWidth(double x1, double x2) const = 0;
    // Views snap so that candles start right after the left inset.
    virtual bool hasCandles() const = 0;
    // Pixels kept free at the left edge of the canvas.
    virtual int getLeftInset() const = 0;
};

#endif // VIEWCONTENT_H
