#include "plotter.h"

#include "utils.h"

#include <QDateTime>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <vector>

namespace {

const int MarginLeft = 80;
const int MarginTop = 30;
const int MarginRight = 35;
const int MarginBottom = 50;
const int ButtonSize = 24;
const int ButtonGap = 6;
// The pause after each step of a held scroll button, so that the step shows
// before the next one comes.
const int ScrollPauseMs = 10;

// Pixel positions of plot values, rounded to whole pixels: the curves are
// drawn without antialiasing, and whole pixels make the columns of the thinned
// drawing exact. A position further than Far pixels out is held there; the
// line to such a point leaves the plot at a slightly wrong slope, where it is
// never seen.
const int Far = 1 << 22;

struct Mapping
{
    double minX, minY, scaleX, scaleY;
    int left, bottom;

    static int toPixel(double v) { return int(std::clamp(v, -double(Far), double(Far)) + Far + 0.5) - Far; }
    int px(double x) const { return toPixel(left + (x - minX) * scaleX); }
    int py(double y) const { return toPixel(bottom - (y - minY) * scaleY); }
};

bool isFinite(double v)
{
    return std::abs(v) <= DBL_MAX;
}

// A view can be drawn when both of its spans are finite and not empty; the
// settings an owner passes in need not have been through adjust().
bool isDrawable(const PlotSettings& view)
{
    return isFinite(view.minX) && isFinite(view.minY) && isFinite(view.spanX()) && isFinite(view.spanY()) &&
           view.spanX() > 0 && view.spanY() > 0;
}

Mapping makeMapping(const PlotSettings& view, const QRect& rect)
{
    return Mapping{view.minX,   view.minY,    (rect.width() - 1) / view.spanX(), (rect.height() - 1) / view.spanY(),
                   rect.left(), rect.bottom()};
}

// Time order with no time that is not a number: what the search for the
// view's edges needs.
bool isOrdered(const QVector<QPointF>& data)
{
    for (int i = 0; i < data.size(); ++i)
        if (std::isnan(data[i].x()) || (i > 0 && data[i].x() < data[i - 1].x()))
            return false;
    return true;
}

// The lines of one curve. Each is drawn with both of its end pixels, as
// drawLine draws a line on its own (a polyline leaves out the pixel where it
// turns back up or down), so what a path covers is the union of its lines:
// within one pixel column that is the run from its lowest to its highest
// pixel, whatever the order of the points. A line of no length is a point.
class CurveLines
{
public:
    // The next point, joined to the one before unless a gap came between.
    void to(const QPoint& p)
    {
        if (m_open)
            add(m_last, p);
        m_alone = !m_open;
        m_last = p;
        m_open = true;
    }
    // A vertical run in one column, which the points just passed through.
    void span(int x, int top, int bottom)
    {
        add(QPoint(x, top), QPoint(x, bottom));
        m_alone = false;
    }
    // The pen stays within the run drawn last and goes on from p.
    void moveTo(const QPoint& p) { m_last = p; }
    // A point between two gaps is drawn on its own.
    void gap()
    {
        if (m_alone)
            m_points.append(m_last);
        m_open = m_alone = false;
    }
    void draw(QPainter* painter)
    {
        gap();
        if (!m_lines.isEmpty())
            painter->drawLines(m_lines.constData(), int(m_lines.size()));
        if (!m_points.isEmpty())
            painter->drawPoints(m_points.constData(), int(m_points.size()));
    }

private:
    void add(const QPoint& a, const QPoint& b)
    {
        if (a == b)
            m_points.append(a);
        else
            m_lines.append(QLine(a, b));
    }

    QVector<QLine> m_lines;
    QVector<QPoint> m_points;
    QPoint m_last;
    bool m_open = false;
    bool m_alone = false;
};

} // namespace

Plotter::Plotter(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

    auto makeButton = [this](const char* name, const char* icon) {
        auto* button = new QToolButton(this);
        button->setObjectName(QLatin1String(name));
        button->setIcon(QIcon(QLatin1String(icon)));
        button->setIconSize(QSize(ButtonSize - 6, ButtonSize - 6));
        button->setFixedSize(ButtonSize, ButtonSize);
        button->setFocusPolicy(Qt::NoFocus);
        return button;
    };
    m_zoomInButton = makeButton("btnZoomIn", ":/images/zoomin.png");
    m_zoomOutButton = makeButton("btnZoomOut", ":/images/zoomout.png");
    m_upButton = makeButton("btnUp", ":/images/up.png");
    m_downButton = makeButton("btnDown", ":/images/down.png");
    m_leftButton = makeButton("btnLeft", ":/images/left.png");
    m_rightButton = makeButton("btnRight", ":/images/right.png");
    m_drawModeButton = makeButton("btnDrawMode", ":/images/line.png");
    connect(m_zoomInButton, &QToolButton::clicked, this, &Plotter::zoomIn);
    connect(m_zoomOutButton, &QToolButton::clicked, this, &Plotter::zoomOut);
    connect(m_drawModeButton, &QToolButton::clicked, this, &Plotter::changeDrawMode);
    // A held scroll button repeats its step.
    for (QToolButton* button : {m_upButton, m_downButton, m_leftButton, m_rightButton})
        button->setAutoRepeat(true);
    connect(m_upButton, &QToolButton::pressed, this, &Plotter::scrollUp);
    connect(m_downButton, &QToolButton::pressed, this, &Plotter::scrollDown);
    connect(m_leftButton, &QToolButton::pressed, this, &Plotter::scrollLeft);
    connect(m_rightButton, &QToolButton::pressed, this, &Plotter::scrollRight);
    retranslate();

    setPlotSettings(PlotSettings());
}

void Plotter::setPlotSettings(const PlotSettings& settings)
{
    m_zoomStack = {settings};
    m_curZoom = 0;
    m_zoomInButton->hide();
    m_zoomOutButton->hide();
    refreshPixmap();
}

void Plotter::setCurZoomPlotSettings(const PlotSettings& settings)
{
    const double oldMinX = m_zoomStack[m_curZoom].minX;
    m_zoomStack[m_curZoom] = settings;
    refreshPixmap();
    if (settings.minX != oldMinX)
        emit minXChanged(settings.minX);
}

void Plotter::setCurveData(int id, const QVector<QPointF>& data)
{
    m_curveMap[id] = data;
    if (isOrdered(data))
        m_unordered.remove(id);
    else
        m_unordered.insert(id);
    refreshPixmap();
}

bool Plotter::addpendCurveData(int id, const QPointF& point)
{
    if (!isFinite(point.x()))
        return false;
    const PlotSettings& view = m_zoomStack[m_curZoom];
    // A value that is not finite is a gap: nothing to draw, nothing to make room for.
    const bool inside = !isFinite(point.y()) || (point.x() >= view.minX && point.x() <= view.maxX &&
                                                 point.y() >= view.minY && point.y() <= view.maxY);
    auto curve = m_curveMap.find(id);
    if (curve == m_curveMap.end()) {
        m_curveMap.insert(id, {point});
        m_unordered.remove(id);
        refreshPixmap();
        return inside;
    }
    QVector<QPointF>& data = *curve;
    if (!data.isEmpty() && point.x() < data.last().x())
        m_unordered.insert(id);
    data.append(point);
    // Dropping from the front only moves the start of the list, whatever its
    // size; now and then an append that finds no room at the end moves the
    // points, once in many thousand.
    if (m_maxPoints > 0 && data.size() - m_maxPoints > 60)
        data.remove(0, data.size() - m_maxPoints - 60);
    if (inside) {
        refreshPixmapAfterAppend(id);
        return true;
    }
    PlotSettings wider = view;
    wider.minX = std::min(wider.minX, point.x());
    wider.maxX = std::max(wider.maxX, point.x());
    wider.minY = std::min(wider.minY, point.y());
    wider.maxY = std::max(wider.maxY, point.y());
    wider.adjust();
    setCurZoomPlotSettings(wider);
    return false;
}

void Plotter::clearCurves()
{
    m_curveMap.clear();
    m_unordered.clear();
    refreshPixmap();
}

void Plotter::clearCurve(int id)
{
    m_curveMap.remove(id);
    m_unordered.remove(id);
    refreshPixmap();
}

void Plotter::setCurveName(int id, const QString& name)
{
    m_curveNames[id] = name;
    refreshPixmap();
}

void Plotter::setTitle(const QString& title)
{
    m_title = title;
    refreshPixmap();
}

QColor Plotter::getCurverColor(int id) const
{
    // Dark enough all of them to stay black in the black-and-white copy.
    static const QColor colors[] = {QColor(0, 0, 230),   QColor(210, 0, 0),  QColor(0, 128, 0),  QColor(160, 0, 160),
                                    QColor(0, 115, 140), QColor(180, 90, 0), QColor(90, 60, 20), Qt::black};
    const int count = int(std::size(colors));
    return colors[(id % count + count) % count];
}

void Plotter::setDrawPolyline(bool polyline)
{
    m_drawPolyline = polyline;
    m_drawModeButton->setIcon(
        QIcon(polyline ? QStringLiteral(":/images/line.png") : QStringLiteral(":/images/point.png")));
    refreshPixmap();
}

void Plotter::showDrawModeButton(bool show)
{
    m_drawModeButton->setVisible(show);
}

bool Plotter::saveInFile(const QString& fileName)
{
    const QImage image = m_pixmap.toImage();
    QString bwName = fileName;
    if (bwName.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
        bwName.chop(4);
    bwName += QLatin1String("_bw.png");
    // The threshold keeps the dark curves, the text and the dotted grid
    // black and makes the white ground white.
    return image.save(fileName, "png") &&
           image.convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::ThresholdDither).save(bwName, "png");
}

void Plotter::setDecimation(bool on)
{
    m_decimation = on;
    refreshPixmap();
}

QSize Plotter::minimumSizeHint() const
{
    return QSize(180, 120);
}

QSize Plotter::sizeHint() const
{
    return QSize(360, 240);
}

void Plotter::zoomIn()
{
    if (m_curZoom >= m_zoomStack.size() - 1)
        return;
    ++m_curZoom;
    updateZoomButtons();
    refreshPixmap();
    emit zoomChanged();
}

void Plotter::zoomOut()
{
    if (m_curZoom <= 0)
        return;
    --m_curZoom;
    updateZoomButtons();
    refreshPixmap();
    emit zoomChanged();
}

void Plotter::changeDrawMode()
{
    setDrawPolyline(!m_drawPolyline);
}

void Plotter::scrollUp()
{
    scrollPlot(0, 1);
    mySleep(ScrollPauseMs);
}

void Plotter::scrollDown()
{
    scrollPlot(0, -1);
    mySleep(ScrollPauseMs);
}

void Plotter::scrollLeft()
{
    scrollPlot(-1, 0);
    mySleep(ScrollPauseMs);
}

void Plotter::scrollRight()
{
    scrollPlot(1, 0);
    mySleep(ScrollPauseMs);
}

void Plotter::scrollPlot(int dx, int dy)
{
    PlotSettings settings = m_zoomStack[m_curZoom];
    settings.scroll(dx, dy);
    setCurZoomPlotSettings(settings);
}

void Plotter::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_pixmap);
    if (m_rubberBandIsShown) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
        painter.drawRect(m_rubberBandRect.adjusted(0, 0, -1, -1));
    }
}

void Plotter::resizeEvent(QResizeEvent* /*event*/)
{
    const int right = width() - 5 - ButtonSize;
    const int left = right - ButtonGap - ButtonSize;
    const int row = ButtonSize + ButtonGap;
    m_zoomInButton->move(left, 5);
    m_zoomOutButton->move(right, 5);
    m_upButton->move(left, 5 + row);
    m_downButton->move(right, 5 + row);
    m_leftButton->move(left, 5 + 2 * row);
    m_rightButton->move(right, 5 + 2 * row);
    m_drawModeButton->move(left, 5 + 3 * row);
    refreshPixmap();
}

void Plotter::mousePressEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    if (!plotRect().contains(pos))
        return;
    m_pressPos = pos;
    if (event->button() == Qt::LeftButton) {
        m_leftButtonPressed = true;
        m_rubberBandIsShown = true;
        m_rubberBandRect = QRect(pos, pos);
        setCursor(Qt::CrossCursor);
    } else if (event->button() == Qt::RightButton) {
        m_rightButtonPressed = true;
        setCursor(Qt::ClosedHandCursor);
    }
}

void Plotter::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    if (m_rubberBandIsShown) {
        update(m_rubberBandRect);
        m_rubberBandRect = QRect(m_pressPos, pos).normalized();
        update(m_rubberBandRect);
    } else if (m_rightButtonPressed) {
        // The view follows the hand by whole grid intervals, so that the
        // ticks stay on round values.
        const PlotSettings& view = m_zoomStack[m_curZoom];
        const QRect plot = plotRect();
        const double intervalWidth = double(plot.width()) / std::max(view.numXTicks, 1);
        const double intervalHeight = double(plot.height()) / std::max(view.numYTicks, 1);
        if (intervalWidth < 1 || intervalHeight < 1)
            return;
        const int dx = int((pos.x() - m_pressPos.x()) / intervalWidth);
        const int dy = int((pos.y() - m_pressPos.y()) / intervalHeight);
        if (dx != 0 || dy != 0) {
            m_pressPos += QPoint(int(dx * intervalWidth), int(dy * intervalHeight));
            scrollPlot(-dx, dy);
        }
    }
}

void Plotter::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton && m_rightButtonPressed) {
        m_rightButtonPressed = false;
        unsetCursor();
        update();
        return;
    }
    if (event->button() != Qt::LeftButton || !m_leftButtonPressed)
        return;
    m_leftButtonPressed = false;
    m_rubberBandIsShown = false;
    unsetCursor();
    update(m_rubberBandRect);
    const QRect plot = plotRect();
    const QRect band = m_rubberBandRect.intersected(plot).translated(-plot.topLeft());
    // A QRect counts both of its edges: a band dragged over 3 pixels is 4 wide.
    if (band.width() < 4 || band.height() < 4)
        return;
    const PlotSettings& current = m_zoomStack[m_curZoom];
    const double dx = current.spanX() / (plot.width() - 1);
    const double dy = current.spanY() / (plot.height() - 1);
    PlotSettings settings = current;
    settings.minX = current.minX + dx * band.left();
    settings.maxX = current.minX + dx * band.right();
    settings.minY = current.maxY - dy * band.bottom();
    settings.maxY = current.maxY - dy * band.top();
    settings.adjust();
    m_zoomStack.resize(m_curZoom + 1);
    m_zoomStack.append(settings);
    zoomIn();
}

void Plotter::keyPressEvent(QKeyEvent* event)
{
    const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Plus:
        zoomIn();
        break;
    case Qt::Key_Minus:
        zoomOut();
        break;
    case Qt::Key_Left:
        scrollPlot(-1, 0);
        break;
    case Qt::Key_Right:
        scrollPlot(1, 0);
        break;
    case Qt::Key_Down:
        scrollPlot(0, -1);
        break;
    case Qt::Key_Up:
        scrollPlot(0, 1);
        break;
    case Qt::Key_L:
    case Qt::Key_P:
        if (ctrl) {
            setDrawPolyline(event->key() == Qt::Key_L);
            break;
        }
        [[fallthrough]];
    default:
        QWidget::keyPressEvent(event);
    }
}

void Plotter::wheelEvent(QWheelEvent* event)
{
    // A notch is 15 degrees, in eighths of a degree; finer wheels add up.
    m_wheelDelta += event->angleDelta();
    const QPoint notches = m_wheelDelta / (8 * 15);
    m_wheelDelta -= notches * (8 * 15);
    if (notches.x() != 0)
        scrollPlot(notches.x(), 0);
    else if (notches.y() != 0 && event->modifiers().testFlag(Qt::ControlModifier))
        scrollPlot(notches.y(), 0);
    else if (notches.y() != 0)
        scrollPlot(0, notches.y());
    event->accept();
}

void Plotter::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

QRect Plotter::plotRect() const
{
    return QRect(MarginLeft, MarginTop, width() - MarginLeft - MarginRight, height() - MarginTop - MarginBottom);
}

void Plotter::refreshPixmap()
{
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = size() * ratio;
    if (m_pixmap.size() != pixels)
        m_pixmap = QPixmap(pixels);
    m_pixmap.setDevicePixelRatio(ratio);
    m_pixmap.fill(Qt::white);
    QPainter painter(&m_pixmap);
    drawGrid(&painter);
    drawLegend(&painter);
    drawCurves(&painter);
    update();
}

void Plotter::refreshPixmapAfterAppend(int id)
{
    if (m_pixmap.size() != size() * devicePixelRatioF()) {
        refreshPixmap();
        return;
    }
    QPainter painter(&m_pixmap);
    update(drawCurveAfterAppend(&painter, id));
}

void Plotter::drawGrid(QPainter* painter)
{
    const QRect rect = plotRect();
    const PlotSettings& view = m_zoomStack[m_curZoom];
    if (!rect.isValid() || !isDrawable(view))
        return;
    const int xTicks = std::max(view.numXTicks, 1);
    const int yTicks = std::max(view.numYTicks, 1);
    const double stepX = view.spanX() / xTicks;
    // Minutes alone when every tick is on a whole minute.
    const QDateTime first = QDateTime::fromSecsSinceEpoch(qint64(std::llround(view.minX)));
    const bool minutes = stepX >= 60 && std::fmod(stepX, 60) == 0 && first.time().second() == 0;
    const QString format = minutes ? QStringLiteral("dd.MM.yyyy\nhh:mm") : QStringLiteral("dd.MM.yyyy\nhh:mm:ss");

    // A label on every tick, or on every n-th where they would overlap; the
    // grid lines thin out with them only when they come closer than 3 pixels.
    const QFontMetrics metrics = painter->fontMetrics();
    const int labelWidth = metrics.horizontalAdvance(QStringLiteral("00.00.0000")) + 10;
    const int labelHeight = metrics.height() + 4;
    const int everyX = std::max(1, int(std::ceil(double(xTicks + 1) * labelWidth / rect.width())));
    const int everyY = std::max(1, int(std::ceil(double(yTicks + 1) * labelHeight / rect.height())));
    const int gridX = rect.width() / xTicks >= 3 ? 1 : everyX;
    const int gridY = rect.height() / yTicks >= 3 ? 1 : everyY;

    const QPen gridPen(QColor(112, 112, 112), 0, Qt::DotLine);
    const QPen textPen(Qt::black);
    for (int i = 0; i <= xTicks; i += gridX) {
        const int x = rect.left() + int(std::lround(double(i) * (rect.width() - 1) / xTicks));
        painter->setPen(gridPen);
        painter->drawLine(x, rect.top(), x, rect.bottom());
        if (i % everyX != 0)
            continue;
        const double time = view.minX + i * stepX;
        painter->setPen(textPen);
        // The labels at the ends move in as far as it takes to stay whole.
        const int labelLeft = std::max(0, std::min(x - 50, width() - 100));
        painter->drawText(QRect(labelLeft, rect.bottom() + 5, 100, MarginBottom - 5), Qt::AlignHCenter | Qt::AlignTop,
                          QDateTime::fromSecsSinceEpoch(qint64(std::llround(time))).toString(format));
    }
    for (int j = 0; j <= yTicks; j += gridY) {
        const int y = rect.bottom() - int(std::lround(double(j) * (rect.height() - 1) / yTicks));
        painter->setPen(gridPen);
        painter->drawLine(rect.left(), y, rect.right(), y);
        if (j % everyY != 0)
            continue;
        const double value = view.minY + j * view.spanY() / yTicks;
        painter->setPen(textPen);
        painter->drawText(QRect(0, y - labelHeight / 2, rect.left() - 5, labelHeight),
                          Qt::AlignRight | Qt::AlignVCenter,
                          QString::number(std::abs(value) < 1e-12 * view.spanY() ? 0.0 : value));
    }
    painter->setPen(textPen);
    painter->drawRect(rect.adjusted(0, 0, -1, -1));
}

void Plotter::drawLegend(QPainter* painter)
{
    // The title, then the names of the curves, each in its curve's colour,
    // on one line above the plot area.
    int x = MarginLeft;
    const int baseline = MarginTop - 10;
    if (!m_title.isEmpty()) {
        QFont bold = font();
        bold.setBold(true);
        painter->setFont(bold);
        painter->setPen(Qt::black);
        painter->drawText(x, baseline, m_title);
        x += painter->fontMetrics().horizontalAdvance(m_title) + 20;
    }
    QFont legend(QStringLiteral("Arial"));
    legend.setPointSizeF(font().pointSizeF());
    painter->setFont(legend);
    for (auto name = m_curveNames.cbegin(); name != m_curveNames.cend(); ++name) {
        // A named curve without points (not shown now) has no place in it.
        if (m_curveMap.value(name.key()).isEmpty())
            continue;
        painter->setPen(getCurverColor(name.key()));
        painter->drawText(x, baseline, name.value());
        x += painter->fontMetrics().horizontalAdvance(name.value()) + 15;
    }
    painter->setFont(font());
}

void Plotter::drawCurves(QPainter* painter)
{
    const QRect rect = plotRect();
    if (!rect.isValid() || !isDrawable(m_zoomStack[m_curZoom]))
        return;
    painter->save();
    painter->setClipRect(rect);
    painter->setRenderHint(QPainter::Antialiasing, false);
    for (auto curve = m_curveMap.cbegin(); curve != m_curveMap.cend(); ++curve)
        drawCurve(painter, curve.key(), curve.value());
    painter->restore();
}

void Plotter::drawCurve(QPainter* painter, int id, const QVector<QPointF>& data)
{
    const PlotSettings& view = m_zoomStack[m_curZoom];
    const QRect rect = plotRect();
    const Mapping map = makeMapping(view, rect);
    painter->setPen(QPen(getCurverColor(id), 0));

    // The points in view, and one either side for the lines that cross the edges.
    const bool ordered = !m_unordered.contains(id);
    int begin = 0;
    int end = int(data.size());
    int inView = end;
    if (ordered) {
        const auto low = std::lower_bound(data.cbegin(), data.cend(), view.minX,
                                          [](const QPointF& p, double x) { return p.x() < x; });
        const auto high =
            std::upper_bound(low, data.cend(), view.maxX, [](double x, const QPointF& p) { return x < p.x(); });
        begin = std::max(0, int(low - data.cbegin()) - 1);
        end = std::min(int(data.size()), int(high - data.cbegin()) + 1);
        inView = int(high - low);
    }
    // The rectangles at the points are drawn only while the points are sparse,
    // fewer than a third of the pixel columns: denser, they merge into one
    // solid band that hides the curve itself.
    const bool sparse = inView < rect.width() / 3;

    CurveLines lines;
    QVector<QPoint> dots;
    QVector<QRect> marks;
    auto drawEach = [&](int from, int to) {
        for (int i = from; i < to; ++i) {
            const QPointF& p = data[i];
            if (!isFinite(p.y()) || std::isnan(p.x())) {
                lines.gap();
                continue;
            }
            const int x = map.px(p.x());
            const int y = map.py(p.y());
            if (m_drawPolyline)
                lines.to(QPoint(x, y));
            else if (!sparse)
                dots.append(QPoint(x, y));
            if (sparse)
                marks.append(QRect(x - 2, y - 2, 4, 4));
        }
    };

    if (!ordered || sparse || !m_decimation) {
        drawEach(begin, end);
    } else {
        // Dense: the points go column by column. Within one pixel column the
        // lines of a curve cover the run from its lowest value to its highest,
        // so the line that enters the column, that run and the line that
        // leaves from the column's last point draw the same pixels as every
        // point would; in point mode each pixel a point falls on is drawn once.
        std::vector<int> rowColumn(std::max(rect.height(), 0), INT_MIN);
        int i = begin;
        while (i < end) {
            // The column's last point: doubling steps, then halving.
            const int column = map.px(data[i].x());
            int last = i;
            int step = 1;
            while (last + step < end && map.px(data[last + step].x()) == column) {
                last += step;
                step *= 2;
            }
            int next = std::min(last + step, end);
            while (next - last > 1) {
                const int middle = last + (next - last) / 2;
                if (map.px(data[middle].x()) == column)
                    last = middle;
                else
                    next = middle;
            }
            if (m_drawPolyline) {
                double low = DBL_MAX;
                double high = -DBL_MAX;
                bool gap = false;
                for (int k = i; k < next; ++k) {
                    const double y = data[k].y();
                    low = std::min(low, y);
                    high = std::max(high, y);
                    gap |= !isFinite(y);
                }
                if (gap) {
                    drawEach(i, next);
                } else {
                    lines.to(QPoint(column, map.py(data[i].y())));
                    lines.span(column, map.py(high), map.py(low));
                    lines.moveTo(QPoint(column, map.py(data[next - 1].y())));
                }
            } else if (column >= rect.left() && column <= rect.right()) {
                for (int k = i; k < next; ++k) {
                    const double y = data[k].y();
                    if (!isFinite(y))
                        continue;
                    const int row = map.py(y) - rect.top();
                    if (row >= 0 && row < rect.height() && rowColumn[row] != column) {
                        rowColumn[row] = column;
                        dots.append(QPoint(column, row + rect.top()));
                    }
                }
            }
            i = next;
        }
    }
    lines.draw(painter);
    if (!dots.isEmpty())
        painter->drawPoints(dots.constData(), int(dots.size()));
    if (!marks.isEmpty())
        painter->drawRects(marks.constData(), int(marks.size()));
}

QRect Plotter::drawCurveAfterAppend(QPainter* painter, int id)
{
    const QVector<QPointF>& data = *m_curveMap.constFind(id);
    const QPointF& point = data.last();
    const PlotSettings& view = m_zoomStack[m_curZoom];
    const QRect rect = plotRect();
    if (!isFinite(point.y()) || !rect.isValid() || !isDrawable(view))
        return QRect();
    const Mapping map = makeMapping(view, rect);
    int inView = int(data.size());
    if (!m_unordered.contains(id)) {
        const auto low = std::lower_bound(data.cbegin(), data.cend(), view.minX,
                                          [](const QPointF& p, double x) { return p.x() < x; });
        inView = int(data.cend() - low);
    }
    const bool sparse = inView < rect.width() / 3;

    painter->setClipRect(rect);
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(getCurverColor(id), 0));
    const QPoint to(map.px(point.x()), map.py(point.y()));
    QRect dirty(to, to);
    const QPointF* previous = data.size() > 1 ? &data[data.size() - 2] : nullptr;
    if (m_drawPolyline && previous && isFinite(previous->y())) {
        const QPoint from(map.px(previous->x()), map.py(previous->y()));
        if (from == to)
            painter->drawPoint(to);
        else
            painter->drawLine(from, to);
        dirty = QRect(from, to).normalized();
    } else if (!m_drawPolyline && !sparse) {
        painter->drawPoint(to);
    }
    if (sparse)
        painter->drawRect(QRect(to.x() - 2, to.y() - 2, 4, 4));
    return dirty.adjusted(-3, -3, 3, 3).intersected(rect);
}

void Plotter::updateZoomButtons()
{
    m_zoomInButton->setEnabled(m_curZoom < m_zoomStack.size() - 1);
    m_zoomOutButton->setEnabled(m_curZoom > 0);
    m_zoomInButton->show();
    m_zoomOutButton->show();
}

void Plotter::retranslate()
{
    m_zoomInButton->setToolTip(tr("Next zoom"));
    m_zoomOutButton->setToolTip(tr("Previous zoom"));
    m_upButton->setToolTip(tr("Move plot up"));
    m_downButton->setToolTip(tr("Move plot down"));
    m_leftButton->setToolTip(tr("Move plot left"));
    m_rightButton->setToolTip(tr("Move plot right"));
    m_drawModeButton->setToolTip(tr("Curves draw mode - line/point"));
}
