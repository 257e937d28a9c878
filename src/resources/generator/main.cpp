// Draws every image the library compiles in (button, handle and tool icons)
// and writes the resource list that names them.
//
//   pricegraph-icongen OUTDIR [--sheet SHEET.png]
//
// OUTDIR is src/resources: the images land in its sub-folders and
// OUTDIR/pricegraph.qrc is rewritten. --sheet also renders a contact sheet
// (every icon at 1x and 4x on the chart background) to look them over.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QTextStream>

#include <functional>
#include <vector>

namespace {

// Palette tuned for the dark chart background (#0c0c0c).
const QColor kChartBg(0x0c, 0x0c, 0x0c);
const QColor kScrollBg(0x11, 0x11, 0x11);   // scroll bar trough
const QColor kLine(0xd2, 0xd2, 0xd2);       // tool strokes
const QColor kDim(0x8c, 0x8c, 0x8c);        // idle buttons
const QColor kBright(0xf4, 0xf4, 0xf4);     // hovered buttons
const QColor kAccent(0x3d, 0xa5, 0xf4);     // anchors, levels
const QColor kAccent2(0xf0, 0xa0, 0x30);    // second level colour
const QColor kOrder(0x06, 0x7e, 0x82);      // order line box
const QColor kOrderHover(0x0b, 0xa8, 0xad);
const QColor kCancelHover(0xd0, 0x3a, 0x2c);
const QColor kPosition(0x1f, 0x5f, 0xae);
const QColor kPositionHover(0x35, 0x86, 0xe6);

struct Icon
{
    QString prefix;     // resource prefix, without the leading ':'
    QString folder;     // folder under OUTDIR
    QString file;       // resource and file name
    int size;
    std::function<void(QPainter &)> draw;
};

QPen pen(const QColor &c, qreal w, Qt::PenCapStyle cap = Qt::RoundCap)
{
    return QPen(c, w, Qt::SolidLine, cap, Qt::RoundJoin);
}

QPainterPath closedPath(std::initializer_list<QPointF> points)
{
    QPolygonF polygon(points);
    QPainterPath path;
    path.addPolygon(polygon);
    path.closeSubpath();
    return path;
}

void dot(QPainter &p, QPointF c, qreal r = 1.7, const QColor &color = kAccent)
{
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawEllipse(c, r, r);
    p.setBrush(Qt::NoBrush);
}

// ---- navigation ----------------------------------------------------------

// Opaque: the scroll bar paints red under the arrow image.
void arrow(QPainter &p, bool left)
{
    p.fillRect(QRect(0, 0, 12, 12), kScrollBg);
    const QPainterPath path = left ? closedPath({{7.8, 2.5}, {3.6, 6.0}, {7.8, 9.5}})
                                   : closedPath({{4.2, 2.5}, {8.4, 6.0}, {4.2, 9.5}});
    p.setPen(pen(QColor(0x9a, 0x9a, 0x9a), 1.0));
    p.setBrush(QColor(0x9a, 0x9a, 0x9a));
    p.drawPath(path);
}

void magnifier(QPainter &p, bool plus, const QColor &c)
{
    p.setPen(pen(c, 1.4));
    p.drawEllipse(QPointF(5.8, 5.8), 4.3, 4.3);
    p.setPen(pen(c, 2.2));
    p.drawLine(QPointF(9.1, 9.1), QPointF(12.6, 12.6));
    p.setPen(pen(c, 1.3, Qt::FlatCap));
    p.drawLine(QPointF(3.6, 5.8), QPointF(8.0, 5.8));
    if (plus)
        p.drawLine(QPointF(5.8, 3.6), QPointF(5.8, 8.0));
}

// ---- handles (15 x 15 widgets) -------------------------------------------

void handleShown(QPainter &p)
{
    p.setPen(pen(kBright, 1.2));
    p.setBrush(kAccent);
    p.drawEllipse(QPointF(7.5, 7.5), 3.6, 3.6);
}

void handleHover(QPainter &p)
{
    p.setPen(pen(kAccent, 1.6));
    p.setBrush(kBright);
    p.drawEllipse(QPointF(7.5, 7.5), 5.2, 5.2);
}

void handleHidden(QPainter &p)
{
    p.setPen(pen(QColor(0xb0, 0xb0, 0xb0), 1.3));
    p.setBrush(QColor(0x0c, 0x0c, 0x0c, 160));
    p.drawEllipse(QPointF(7.5, 7.5), 4.4, 4.4);
}

// ---- order and position buttons (14 x 14, opaque) ------------------------

void box(QPainter &p, const QColor &bg)
{
    p.fillRect(QRect(0, 0, 14, 14), bg);
    p.setPen(QPen(bg.lighter(135), 1.0));
    p.drawRect(QRectF(0.5, 0.5, 13, 13));
}

void pencil(QPainter &p, const QColor &bg)
{
    box(p, bg);
    // Body along the diagonal, a tip at the lower left, a cap at the top right.
    const QPainterPath body =
        closedPath({{3.0, 11.0}, {3.6, 8.4}, {9.2, 2.8}, {11.2, 4.8}, {5.6, 10.4}});
    p.setPen(pen(Qt::white, 0.9));
    p.setBrush(Qt::white);
    p.drawPath(body);
    p.setPen(pen(bg, 1.0, Qt::FlatCap));
    p.drawLine(QPointF(8.0, 4.0), QPointF(10.0, 6.0));
    p.drawLine(QPointF(3.7, 8.6), QPointF(5.4, 10.3));
}

void cross(QPainter &p, const QColor &bg)
{
    box(p, bg);
    p.setPen(pen(Qt::white, 1.8));
    p.drawLine(QPointF(4.5, 4.5), QPointF(9.5, 9.5));
    p.drawLine(QPointF(9.5, 4.5), QPointF(4.5, 9.5));
}

// ---- drawing tools (16 x 16) ---------------------------------------------

void trendLine(QPainter &p)
{
    p.setPen(pen(kLine, 1.4));
    p.drawLine(QPointF(2.5, 13.5), QPointF(13.5, 2.5));
    dot(p, QPointF(2.5, 13.5), 2.0);
    dot(p, QPointF(13.5, 2.5), 2.0);
}

void ray(QPainter &p)
{
    p.setPen(pen(kLine, 1.4));
    p.drawLine(QPointF(2.5, 13.5), QPointF(15.5, 3.1));
    dot(p, QPointF(2.5, 13.5), 2.0);
    dot(p, QPointF(8.5, 8.7), 2.0);
}

void horizontalLine(QPainter &p)
{
    p.setPen(pen(kLine, 1.0, Qt::FlatCap));
    p.drawLine(QPointF(0.0, 7.5), QPointF(16.0, 7.5));
    dot(p, QPointF(7.5, 7.5), 2.3);
}

void verticalLine(QPainter &p)
{
    p.setPen(pen(kLine, 1.0, Qt::FlatCap));
    p.drawLine(QPointF(7.5, 0.0), QPointF(7.5, 16.0));
    dot(p, QPointF(7.5, 7.5), 2.3);
}

void rectangle(QPainter &p)
{
    p.setPen(pen(kLine, 1.3));
    p.setBrush(QColor(kAccent.red(), kAccent.green(), kAccent.blue(), 50));
    p.drawRect(QRectF(2.5, 4.5, 11, 8));
    dot(p, QPointF(2.5, 4.5), 1.9);
    dot(p, QPointF(13.5, 12.5), 1.9);
}

void ellipse(QPainter &p)
{
    p.setPen(pen(kLine, 1.3));
    p.setBrush(QColor(kAccent.red(), kAccent.green(), kAccent.blue(), 50));
    p.drawEllipse(QRectF(1.5, 3.5, 13, 9));
}

void triangle(QPainter &p)
{
    const QPointF pts[3] = {QPointF(2.0, 13.5), QPointF(7.0, 2.5), QPointF(14.0, 10.5)};
    p.setPen(pen(kLine, 1.3));
    p.drawPolygon(pts, 3);
    for (const QPointF &pt : pts)
        dot(p, pt, 1.8);
}

void fibRetracement(QPainter &p)
{
    const qreal ys[] = {2.5, 6.5, 9.5, 13.5};
    const QColor cs[] = {kLine, kAccent2, kAccent, kLine};
    for (int i = 0; i < 4; ++i) {
        p.setPen(pen(cs[i], 1.0, Qt::FlatCap));
        p.drawLine(QPointF(1.0, ys[i]), QPointF(15.0, ys[i]));
    }
    QPen dash = pen(kLine, 1.0, Qt::FlatCap);
    dash.setDashPattern({2.0, 2.0});
    p.setPen(dash);
    p.drawLine(QPointF(2.5, 13.5), QPointF(13.5, 2.5));
}

void fibFan(QPainter &p)
{
    const QPointF o(1.5, 14.5);
    p.setPen(pen(kLine, 1.2));
    p.drawLine(o, QPointF(14.5, 1.5));
    p.setPen(pen(kAccent2, 1.2));
    p.drawLine(o, QPointF(14.5, 6.0));
    p.setPen(pen(kAccent, 1.2));
    p.drawLine(o, QPointF(14.5, 10.0));
    dot(p, o, 2.0, kLine);
}

void fibExpansion(QPainter &p)
{
    p.setPen(pen(kLine, 1.2));
    p.drawLine(QPointF(1.5, 14.0), QPointF(5.0, 6.5));
    p.drawLine(QPointF(5.0, 6.5), QPointF(8.0, 11.5));
    const qreal ys[] = {2.5, 5.5, 8.5};
    const QColor cs[] = {kLine, kAccent2, kAccent};
    for (int i = 0; i < 3; ++i) {
        p.setPen(pen(cs[i], 1.0, Qt::FlatCap));
        p.drawLine(QPointF(9.0, ys[i]), QPointF(16.0, ys[i]));
    }
    dot(p, QPointF(1.5, 14.0), 1.6);
    dot(p, QPointF(5.0, 6.5), 1.6);
    dot(p, QPointF(8.0, 11.5), 1.6);
}

void fibTimeZones(QPainter &p)
{
    const qreal xs[] = {1.5, 3.5, 6.5, 10.5, 14.5};
    for (int i = 0; i < 5; ++i) {
        p.setPen(pen(i == 0 ? kLine : (i % 2 ? kAccent : kAccent2), 1.0, Qt::FlatCap));
        p.drawLine(QPointF(xs[i], 2.0), QPointF(xs[i], 14.0));
    }
    p.setPen(pen(kLine, 1.0, Qt::FlatCap));
    p.drawLine(QPointF(1.0, 14.5), QPointF(15.5, 14.5));
}

void pitchfork(QPainter &p)
{
    p.setPen(pen(kLine, 1.0, Qt::FlatCap));
    p.drawLine(QPointF(2.0, 7.5), QPointF(16.0, 7.5));   // median
    p.drawLine(QPointF(7.0, 2.5), QPointF(16.0, 2.5));   // upper tine
    p.drawLine(QPointF(7.0, 12.5), QPointF(16.0, 12.5)); // lower tine
    p.setPen(pen(kAccent, 1.0, Qt::FlatCap));
    p.drawLine(QPointF(6.5, 2.5), QPointF(6.5, 12.5));
    dot(p, QPointF(2.0, 7.5), 1.9);
    dot(p, QPointF(6.5, 2.5), 1.9);
    dot(p, QPointF(6.5, 12.5), 1.9);
}

void priceChannel(QPainter &p)
{
    p.setPen(pen(kLine, 1.3));
    p.drawLine(QPointF(1.5, 10.0), QPointF(14.5, 2.5));
    p.drawLine(QPointF(1.5, 14.5), QPointF(14.5, 7.0));
    QPen dash = pen(kAccent, 1.0, Qt::FlatCap);
    dash.setDashPattern({1.5, 1.5});
    p.setPen(dash);
    p.drawLine(QPointF(1.5, 12.25), QPointF(14.5, 4.75));
    dot(p, QPointF(2.5, 9.4), 1.7);
    dot(p, QPointF(13.5, 3.1), 1.7);
    dot(p, QPointF(13.5, 7.6), 1.7);
}

// ---- cursor modes (16 x 16) ----------------------------------------------

void pointerArrow(QPainter &p)
{
    const QPainterPath path = closedPath({{3.5, 1.5}, {3.5, 13.0}, {6.3, 10.3}, {8.4, 14.6},
                                          {10.3, 13.7}, {8.3, 9.5}, {12.2, 9.5}});
    p.setPen(pen(kChartBg, 1.0));
    p.setBrush(kLine);
    p.drawPath(path);
}

void crosshair(QPainter &p)
{
    p.setPen(pen(kLine, 1.0, Qt::FlatCap));
    p.drawLine(QPointF(7.5, 0.0), QPointF(7.5, 5.0));
    p.drawLine(QPointF(7.5, 10.0), QPointF(7.5, 15.0));
    p.drawLine(QPointF(0.0, 7.5), QPointF(5.0, 7.5));
    p.drawLine(QPointF(10.0, 7.5), QPointF(15.0, 7.5));
    dot(p, QPointF(7.5, 7.5), 1.4);
}

void pan(QPainter &p)
{
    p.setPen(pen(kLine, 1.0, Qt::FlatCap));
    p.drawLine(QPointF(7.5, 3.0), QPointF(7.5, 12.0));
    p.drawLine(QPointF(3.0, 7.5), QPointF(12.0, 7.5));
    p.setPen(Qt::NoPen);
    p.setBrush(kLine);
    const QPointF heads[4][3] = {
        {QPointF(7.5, 0.0), QPointF(4.5, 3.5), QPointF(10.5, 3.5)},
        {QPointF(7.5, 15.0), QPointF(4.5, 11.5), QPointF(10.5, 11.5)},
        {QPointF(0.0, 7.5), QPointF(3.5, 4.5), QPointF(3.5, 10.5)},
        {QPointF(15.0, 7.5), QPointF(11.5, 4.5), QPointF(11.5, 10.5)}};
    for (const auto &h : heads)
        p.drawPolygon(h, 3);
}

std::vector<Icon> icons()
{
    const QString nav = QStringLiteral("/Icons/Resources");
    const QString btn = QStringLiteral("/Icon/Resources");
    const QString line = QStringLiteral("/Line/Resources/line");
    const QString fib = QStringLiteral("/Fibonacci/Resources/fibonacci");
    const QString poly = QStringLiteral("/Polygon/Resources/iconPolygons");
    const QString obj = QStringLiteral("/Objects/Resources/iconChartObjects");
    const QString single = QStringLiteral("/Single/Resources/single");
    using P = QPainter;
    return {
        {nav, "Icons", "icon-left-arrow.png", 12, [](P &p) { arrow(p, true); }},
        {nav, "Icons", "icon-right-arrow.png", 12, [](P &p) { arrow(p, false); }},
        {nav, "Icons", "icon-zoomin-1.png", 14, [](P &p) { magnifier(p, true, kDim); }},
        {nav, "Icons", "icon-zoomin.png", 14, [](P &p) { magnifier(p, true, kBright); }},
        {nav, "Icons", "icon-zoomout-1.png", 14, [](P &p) { magnifier(p, false, kDim); }},
        {nav, "Icons", "icon-zoomout.png", 14, [](P &p) { magnifier(p, false, kBright); }},
        {nav, "Icons", "icon_point2.png", 15, handleShown},
        {nav, "Icons", "icon_point.png", 15, handleHover},
        {nav, "Icons", "icon_point3.png", 15, handleHidden},
        {btn, "Icon", "icon_pen_0.bmp", 14, [](P &p) { pencil(p, kOrder); }},
        {btn, "Icon", "icon_pen_1.bmp", 14, [](P &p) { pencil(p, kOrderHover); }},
        {btn, "Icon", "icon_close_0.bmp", 14, [](P &p) { cross(p, kOrder); }},
        {btn, "Icon", "icon_close_1.bmp", 14, [](P &p) { cross(p, kCancelHover); }},
        {btn, "Icon", "icom_close_blue_0.bmp", 14, [](P &p) { cross(p, kPosition); }},
        {btn, "Icon", "icom_close_blue_1.png", 14, [](P &p) { cross(p, kPositionHover); }},
        {line, "line", "icon-trendline.png", 16, trendLine},
        {line, "line", "icon-ray.png", 16, ray},
        {line, "line", "icon-horizontal.png", 16, horizontalLine},
        {line, "line", "icon-vertical.png", 16, verticalLine},
        {fib, "fibonacci", "icon-retracement.png", 16, fibRetracement},
        {fib, "fibonacci", "icon-fan.png", 16, fibFan},
        {fib, "fibonacci", "icon-expansion.png", 16, fibExpansion},
        {fib, "fibonacci", "icon-timezones.png", 16, fibTimeZones},
        {poly, "iconPolygons", "icon-rectangle.png", 16, rectangle},
        {poly, "iconPolygons", "icon-ellipse.png", 16, ellipse},
        {poly, "iconPolygons", "icon-triangle.png", 16, triangle},
        {obj, "iconChartObjects", "icon-pitchfork.png", 16, pitchfork},
        {obj, "iconChartObjects", "icon-channel.png", 16, priceChannel},
        {single, "single", "icon-arrow.png", 16, pointerArrow},
        {single, "single", "icon-crosshair.png", 16, crosshair},
        {single, "single", "icon-pan.png", 16, pan},
    };
}

QImage render(const Icon &icon, int scale)
{
    QImage img(icon.size * scale, icon.size * scale, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(scale, scale);
    icon.draw(p);
    return img;
}

bool writeQrc(const QString &path, const std::vector<Icon> &list)
{
    QMap<QString, QStringList> byPrefix;
    QStringList order;
    for (const Icon &i : list) {
        if (!byPrefix.contains(i.prefix))
            order << i.prefix;
        byPrefix[i.prefix] << QStringLiteral("    <file alias=\"%1\">%2/%1</file>").arg(i.file, i.folder);
    }
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return false;
    QTextStream out(&f);
    out << "<!DOCTYPE RCC><RCC version=\"1.0\">\n"
           "<!-- Written by src/resources/generator; edit the generator, not this file. -->\n";
    for (const QString &prefix : order) {
        out << "<qresource prefix=\"" << prefix << "\">\n";
        for (const QString &line : byPrefix.value(prefix))
            out << line << "\n";
        out << "</qresource>\n";
    }
    out << "</RCC>\n";
    return true;
}

void writeSheet(const QString &path, const std::vector<Icon> &list)
{
    const int cell = 170, rowH = 80, cols = 4;
    const int rows = int(list.size() + cols - 1) / cols;
    QImage sheet(cols * cell, rows * rowH, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(kChartBg);
    QPainter p(&sheet);
    QFont f(QStringLiteral("Roboto"));
    f.setPixelSize(10);
    p.setFont(f);
    for (size_t n = 0; n < list.size(); ++n) {
        const int x = int(n % cols) * cell, y = int(n / cols) * rowH;
        p.drawImage(QPoint(x + 8, y + 10), render(list[n], 1));
        // The real pixels, magnified: what the widget shows, not a vector redraw.
        const QImage one = render(list[n], 1);
        p.drawImage(QPoint(x + 32, y + 6), one.scaled(one.size() * 4, Qt::IgnoreAspectRatio,
                                                      Qt::FastTransformation));
        p.setPen(QColor(0x80, 0x80, 0x80));
        p.drawText(QRect(x + 4, y + rowH - 14, cell - 8, 12), Qt::AlignLeft, list[n].file);
    }
    p.end();
    if (!sheet.save(path))
        fprintf(stderr, "cannot write %s\n", qPrintable(path));
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        fprintf(stderr, "usage: %s OUTDIR [--sheet SHEET.png]\n", argv[0]);
        return 2;
    }
    const QDir out(args.at(1));
    const std::vector<Icon> list = icons();
    for (const Icon &icon : list) {
        out.mkpath(icon.folder);
        const QString file = out.filePath(icon.folder + QLatin1Char('/') + icon.file);
        QImage img = render(icon, 1);
        // BMP keeps no alpha: those images are drawn opaque.
        if (file.endsWith(QLatin1String(".bmp")))
            img = img.convertToFormat(QImage::Format_RGB32);
        if (!img.save(file)) {
            fprintf(stderr, "cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    if (!writeQrc(out.filePath(QStringLiteral("pricegraph.qrc")), list)) {
        fprintf(stderr, "cannot write the resource list\n");
        return 1;
    }
    const int sheetArg = args.indexOf(QStringLiteral("--sheet"));
    if (sheetArg > 0 && sheetArg + 1 < args.size())
        writeSheet(args.at(sheetArg + 1), list);
    printf("%d images written under %s\n", int(list.size()), qPrintable(out.absolutePath()));
    return 0;
}
