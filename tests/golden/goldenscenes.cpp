#include "goldenscenes.h"

#include "pricegraph.h"
#include "scenehost.h"

namespace {

using H = SceneHost;

const QSize Normal(800, 500);

// ---- what several scenes share ---------------------------------------------

// Colours as decimal 0xRRGGBB in a series name: orange, turquoise, grey, violet.
const char *const MA20 = "MA20*16753920";
const char *const MA50 = "MA50*4251856";
const char *const Band = "BB20.end*8421504";
const char *const Momentum = "MOM10.end*10170623";

// A light scheme: every colour SetChartColor knows.
void lightColours(H &h)
{
    const unsigned long scheme[] = {0xffffff, 0x333333, 0xe6e6e6, 0x555555,
                                    0x26a69a, 0xef5350, 0x2962ff, 0x9c27b0};
    for (int i = 0; i < 8; ++i)
        h.chart().SetChartColor(i, scheme[i]);
}

// S&P 500 candles with an average over them, volume, a momentum histogram
// (0 to the value) and a band (low to high) with an average.
void indicatorPanels(H &h)
{
    h.feedDataSet(H::Sp500Daily);
    h.addAverage(0, MA20, 20);
    h.addMomentum(2, Momentum, 10);
    h.addBand(3, Band, 20, 2.0);
    h.addAverage(3, MA50, 50);
}

void order(H &h, const char *id, double factor, long count)
{
    const char *side = QByteArray(id).contains("Sell") ? "sell" : "buy";
    h.chart().DrawPositionLine(0, h.lastPrice(factor), count, id, 0, side, "", "");
}

// A buy under the market, a sell above it and the open position.
void orderLines(H &h)
{
    order(h, "Buy-1", 0.97, 1000);
    order(h, "Sell-1", 1.03, 1500);
    order(h, "Position-1", 0.99, 2000);
}

void threeOrdersAtOnePrice(H &h)
{
    order(h, "Buy-1", 0.97, 1000);
    order(h, "Buy-2", 0.97, 500);
    order(h, "Buy-3", 0.97, 250);
}

// Draws one line with `draw` and moves the mouse pointer onto it.
void hoverLine(H &h, const std::function<void()> &draw)
{
    const int row = h.rowDrawnBy(draw);
    if (row >= 0)
        h.hover(QPoint(h.size().width() / 2, row));
}

void tickLine(H &h, int decimals)
{
    const double last = h.lastPrice();
    h.chart().updateL1(last, last, decimals, 0);
    h.chart().DrawTickLine(last, 0);
}

// The drawing tools' cursor types.
enum Tool : long {
    TimeZones = 4, Retracement = 5, Channel = 7, Pitchfork = 8, Rectangle = 10,
    Ellipse = 22, Triangle = 23, Fan = 25, Expansion = 26, TrendLine = 2,
    HorizontalLine = 28, VerticalLine = 29, Ray = 30
};

// A press on empty canvas: the mark just drawn is no longer selected.
void deselect(H &h, QPoint empty = QPoint(720, 295))
{
    h.click(empty);
    h.hover(empty); // the pointer rests there: nothing stays highlighted
}

// One mark drawn by a trader on the S&P 500 candles of spring 2020 (the
// crash from the February high to the March low, and the recovery).
void drawn(H &h, long tool, QPoint from, QPoint to)
{
    h.feedDataSet(H::Sp500Daily);
    h.draw(tool, from, to);
}

// The expansion as a trader sets it up: the move, then handle 2 (on top of
// handle 1 after the drag) taken to where the pullback ended.
void expansion(H &h, QPoint a, QPoint b, QPoint c)
{
    h.draw(Expansion, a, b);
    h.drag(b, c);
}

// Every tool at once, as the demo's menu draws them: a wide chart with a
// year of history, the channel on the uptrend, the retracement and the fan
// on the crash, the shapes in the room under the candles. No press lands
// on a mark drawn before.
void everyTool(H &h)
{
    h.feedDataSet(H::Sp500Daily);
    h.chart().ZoomOut(1);
    h.draw(VerticalLine, QPoint(1162, 300), QPoint(1162, 300));
    h.draw(HorizontalLine, QPoint(500, 40), QPoint(500, 40));
    h.draw(TrendLine, QPoint(150, 158), QPoint(232, 215));
    h.draw(Channel, QPoint(20, 232), QPoint(880, 80));
    h.drag(QPoint(450, 211), QPoint(450, 100)); // the parallel line above the candles
    h.draw(Ray, QPoint(1000, 60), QPoint(1060, 190));
    h.draw(Retracement, QPoint(978, 6), QPoint(1162, 492));
    h.draw(Fan, QPoint(1178, 470), QPoint(1300, 280));
    h.draw(Pitchfork, QPoint(20, 280), QPoint(160, 400));
    h.draw(Rectangle, QPoint(420, 300), QPoint(540, 380));
    h.draw(Ellipse, QPoint(580, 300), QPoint(720, 380));
    h.draw(Triangle, QPoint(760, 300), QPoint(820, 420));
    h.draw(TimeZones, QPoint(430, 420), QPoint(560, 470));
    expansion(h, QPoint(870, 470), QPoint(930, 330), QPoint(950, 400));
    deselect(h, QPoint(1320, 495));
}

void repeat(int times, const std::function<void()> &call)
{
    for (int i = 0; i < times; ++i)
        call();
}

// The README's picture: the demo terminal's chart.
void terminal(H &h)
{
    h.feedDataSet(H::Sp500Daily);
    h.addAverage(2, MA20, 20);
    h.addAverage(2, MA50, 50);
    order(h, "Buy-1", 0.97, 1000);
    order(h, "Buy-2", 0.97, 500);
    order(h, "Sell-1", 1.03, 1500);
    order(h, "Position-1", 0.99, 2000);
    tickLine(h, 2);
}

QVector<GoldenScene> makeScenes()
{
    return {
        // The bundled data sets in each chart style.
        {"sp500_daily_bars", Normal, [](H &h) { h.feedDataSet(H::Sp500Daily, H::Bars); }},
        {"sp500_daily_candles", Normal, [](H &h) { h.feedDataSet(H::Sp500Daily, H::Candles); }},
        {"sp500_daily_line", Normal, [](H &h) { h.feedDataSet(H::Sp500Daily, H::Line); }},
        {"usdchf_30min_bars", Normal, [](H &h) { h.feedDataSet(H::UsdChf30Min, H::Bars); }},
        {"usdchf_30min_candles_zero_volume", Normal,
         [](H &h) { h.feedDataSet(H::UsdChf30Min, H::Candles); }},
        {"usdchf_30min_line", Normal, [](H &h) { h.feedDataSet(H::UsdChf30Min, H::Line); }},
        {"usdthb_5min_bars", Normal, [](H &h) { h.feedDataSet(H::UsdThb5Min, H::Bars); }},
        {"usdthb_5min_candles", Normal, [](H &h) { h.feedDataSet(H::UsdThb5Min, H::Candles); }},
        {"usdthb_5min_line", Normal, [](H &h) { h.feedDataSet(H::UsdThb5Min, H::Line); }},

        // Volume and colours.
        {"volume_hidden", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); h.chart().ShowVolume(0); }},
        {"volume_under_the_candles", Normal, [](H &h) { h.feedDataSet(H::Sp500Daily, H::Candles, 0); }},
        {"light_colour_scheme", Normal, [](H &h) { h.feedDataSet(H::Sp500Daily); lightColours(h); }},
        {"light_colour_scheme_line", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily, H::Line); lightColours(h); }},

        // Zoom and scroll.
        {"widest_zoom", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); repeat(6, [&] { h.chart().ZoomOut(1); }); }},
        {"narrowest_zoom", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); repeat(6, [&] { h.chart().ZoomIn(1); }); }},
        {"scrolled_to_the_oldest_bar", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); h.chart().ScrollLeft(1000000); }},
        {"scrolled_back_250_bars", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); h.chart().ScrollLeft(250); }},
        {"zoomed_in_then_reset", Normal, [](H &h) {
             h.feedDataSet(H::Sp500Daily);
             h.chart().ZoomIn(1);
             h.chart().ScrollLeft(40);
             h.chart().ResetZoom();
         }},

        // Panels.
        {"indicator_panels", Normal, indicatorPanels},
        {"panel_moved_up", Normal,
         [](H &h) { indicatorPanels(h); h.chart().MoveChartPanel(3, 1); }},
        {"panel_closed_by_its_button", Normal, [](H &h) {
             indicatorPanels(h);
             h.click(h.centreOf(QStringLiteral("panelCloseButton"), 1)); // the momentum panel
         }},
        {"panel_close_button_hovered", Normal, [](H &h) {
             indicatorPanels(h);
             h.hover(h.centreOf(QStringLiteral("panelCloseButton"), 0));
         }},
        {"empty_panel_added", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); h.chart().AddChartPanel(); }},

        // Intraday: a separator where each day starts.
        {"usdchf_30min_day_separators", Normal,
         [](H &h) { h.feedDataSet(H::UsdChf30Min); repeat(2, [&] { h.chart().ZoomOut(1); }); }},
        {"usdthb_5min_day_separators_widest_zoom", Normal,
         [](H &h) { h.feedDataSet(H::UsdThb5Min); repeat(6, [&] { h.chart().ZoomOut(1); }); }},

        // Trading lines.
        {"buy_sell_and_position_lines", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); orderLines(h); }},
        {"three_orders_at_one_price", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); threeOrdersAtOnePrice(h); }},
        {"buy_order_hovered", Normal, [](H &h) {
             h.feedDataSet(H::Sp500Daily);
             hoverLine(h, [&] { order(h, "Buy-1", 0.97, 1000); });
         }},
        {"sell_order_hovered", Normal, [](H &h) {
             h.feedDataSet(H::Sp500Daily);
             hoverLine(h, [&] { order(h, "Sell-1", 1.03, 1500); });
         }},
        {"position_line_hovered", Normal, [](H &h) {
             h.feedDataSet(H::Sp500Daily);
             hoverLine(h, [&] { order(h, "Position-1", 0.99, 2000); });
         }},
        {"three_orders_at_one_price_hovered", Normal, [](H &h) {
             h.feedDataSet(H::Sp500Daily);
             hoverLine(h, [&] { threeOrdersAtOnePrice(h); });
         }},
        {"tick_line_2_decimals", Normal,
         [](H &h) { h.feedDataSet(H::Sp500Daily); tickLine(h, 2); }},
        {"tick_line_5_decimals", Normal,
         [](H &h) { h.feedDataSet(H::UsdChf30Min); tickLine(h, 5); }},
        {"order_lines_light_colour_scheme", Normal, [](H &h) {
             h.feedDataSet(H::Sp500Daily);
             lightColours(h);
             orderLines(h);
             tickLine(h, 2);
         }},

        // Drawing tools, each drawn by a trader's drag on the candles.
        {"drawn_trend_line", Normal, [](H &h) {
             drawn(h, TrendLine, QPoint(415, 300), QPoint(690, 160));
             deselect(h);
         }},
        {"drawn_ray", Normal, [](H &h) {
             drawn(h, Ray, QPoint(360, 270), QPoint(470, 215));
             deselect(h);
         }},
        {"drawn_horizontal_line", Normal, [](H &h) {
             drawn(h, HorizontalLine, QPoint(300, 150), QPoint(500, 152));
             deselect(h);
         }},
        {"drawn_vertical_line", Normal, [](H &h) {
             drawn(h, VerticalLine, QPoint(415, 200), QPoint(415, 100));
             deselect(h);
         }},
        {"drawn_rectangle", Normal, [](H &h) {
             drawn(h, Rectangle, QPoint(240, 120), QPoint(150, 60));
             deselect(h);
         }},
        {"drawn_ellipse", Normal, [](H &h) {
             drawn(h, Ellipse, QPoint(330, 225), QPoint(470, 305));
             deselect(h);
         }},
        {"drawn_triangle", Normal, [](H &h) {
             drawn(h, Triangle, QPoint(160, 80), QPoint(250, 170));
             deselect(h);
         }},
        {"drawn_fibonacci_retracement", Normal, [](H &h) {
             drawn(h, Retracement, QPoint(95, 40), QPoint(415, 300));
             deselect(h);
         }},
        {"drawn_fibonacci_retracement_low_to_high", Normal, [](H &h) {
             drawn(h, Retracement, QPoint(415, 300), QPoint(120, 45));
             deselect(h);
         }},
        {"drawn_fibonacci_time_zones", Normal, [](H &h) {
             drawn(h, TimeZones, QPoint(60, 30), QPoint(300, 250));
             deselect(h);
         }},
        {"drawn_fibonacci_fan", Normal, [](H &h) {
             drawn(h, Fan, QPoint(415, 300), QPoint(690, 150));
             deselect(h);
         }},
        {"drawn_fibonacci_expansion", Normal, [](H &h) {
             h.feedDataSet(H::Sp500Daily);
             expansion(h, QPoint(415, 300), QPoint(600, 150), QPoint(640, 220));
             deselect(h);
         }},
        {"drawn_pitchfork", Normal, [](H &h) {
             drawn(h, Pitchfork, QPoint(100, 60), QPoint(330, 160));
             deselect(h);
         }},
        {"drawn_price_channel", Normal, [](H &h) {
             drawn(h, Channel, QPoint(440, 245), QPoint(700, 135));
             deselect(h);
         }},
        // Just drawn: selected, its handles shown.
        {"pitchfork_selected_with_handles", Normal,
         [](H &h) { drawn(h, Pitchfork, QPoint(100, 60), QPoint(330, 160)); }},
        {"rectangle_selected_with_grips", Normal,
         [](H &h) { drawn(h, Rectangle, QPoint(150, 60), QPoint(240, 120)); }},
        // The pointer over a mark: its highlight.
        {"trend_line_hovered", Normal, [](H &h) {
             drawn(h, TrendLine, QPoint(415, 300), QPoint(690, 160));
             deselect(h);
             h.hover(QPoint(552, 230));
         }},
        {"ellipse_hovered", Normal, [](H &h) {
             drawn(h, Ellipse, QPoint(330, 225), QPoint(470, 305));
             deselect(h);
             h.hover(QPoint(449, 237));
         }},
        {"every_drawing_tool", QSize(1400, 800), everyTool},

        // Pointer modes.
        {"crosshair_cursor_over_the_candles", Normal, [](H &h) {
             h.feedDataSet(H::Sp500Daily);
             h.chart().SetCursorType(1);
             h.hover(QPoint(400, 150));
         }},

        // Data at the edges.
        {"empty_chart", Normal, [](H &) {}},
        {"one_bar", Normal, [](H &h) { h.feedBars(H::madeBars(1, 100.0, 0.5), 86400000.0, 2); }},
        {"two_bars", Normal, [](H &h) { h.feedBars(H::madeBars(2, 100.0, 0.5), 86400000.0, 2); }},
        {"all_prices_equal", Normal,
         [](H &h) { h.feedBars(H::madeBars(60, 42.0, 0.0), 86400000.0, 2); }},
        {"prices_of_0_00001", Normal,
         [](H &h) { h.feedBars(H::madeBars(60, 0.0001, 0.00001), 86400000.0, 5); }},
        {"prices_of_5_000_000", Normal,
         [](H &h) { h.feedBars(H::madeBars(60, 5000000.0, 2500.0), 86400000.0, 2); }},
        {"zero_volume_fx_series", Normal,
         [](H &h) { h.feedBars(H::madeBars(80, 1.0850, 0.0004, 0), 3600000.0, 4); }},

        // Sizes at the ends of what a terminal gives the chart.
        {"tiny_widget_200x120", QSize(200, 120), [](H &h) { h.feedDataSet(H::Sp500Daily); }},
        {"large_widget_2560x1440", QSize(2560, 1440),
         [](H &h) { indicatorPanels(h); orderLines(h); tickLine(h, 2); }},

        {"terminal_sp500_orders_and_averages", QSize(1200, 700), terminal},
    };
}

} // namespace

const QVector<GoldenScene> &goldenScenes()
{
    static const QVector<GoldenScene> scenes = makeScenes();
    return scenes;
}

QString readmeScene()
{
    return QStringLiteral("terminal_sp500_orders_and_averages");
}
