#ifndef VIEWRANGE_H
#define VIEWRANGE_H

// A displayed x interval [lower, upper] of a panel, and its conversion to and
// from the logical range the panel stores. The logical range is the view at
// zoom 1; the displayed range shares its centre and is (x2 - x1) * zoom wide.
class ViewRange
{
public:
    ViewRange() = default;
    ViewRange(double lower, double upper)
        : m_lower(lower)
        , m_upper(upper)
    {
    }

    static ViewRange fromLogical(double x1, double x2, double zoom);
    void toLogical(double zoom, double &x1, double &x2) const;

    double lower() const { return m_lower; }
    double upper() const { return m_upper; }
    double width() const { return m_upper - m_lower; }

private:
    double m_lower = 0.0;
    double m_upper = 0.0;
};

#endif // VIEWRANGE_H
