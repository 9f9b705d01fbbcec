#ifndef PLOTTER_H
#define PLOTTER_H

#include "plotsettings.h"

#include <QMap>
#include <QPixmap>
#include <QPointF>
#include <QSet>
#include <QVector>
#include <QWidget>

class QToolButton;

// The trend plot: numbered curves of (time, value) points on a grid, with a
// stack of zoom levels, rubber-band zoom with the left button, panning with
// the right one, scroll keys and buttons, and an export to PNG. Everything is
// drawn into a cached pixmap that paintEvent only copies; a point appended
// inside the view adds just its own segment to it.
class Plotter : public QWidget
{
    Q_OBJECT

public:
    explicit Plotter(QWidget* parent = nullptr);

    // Makes settings the only zoom level and hides the zoom buttons.
    void setPlotSettings(const PlotSettings& settings);
    // Replaces the current zoom level.
    void setCurZoomPlotSettings(const PlotSettings& settings);
    PlotSettings getPlotSettings() const { return m_zoomStack.first(); }
    PlotSettings getCurZoomPlotSettings() const { return m_zoomStack.at(m_curZoom); }

    // Points in time order, as polling gives them, are drawn fastest; others
    // are drawn one by one. A point whose value is not finite leaves a gap.
    void setCurveData(int id, const QVector<QPointF>& data);
    // Appends a point; past maxPoints() + 60 points the oldest go. True when
    // the view stays as it is: the point lies in it (only its segment is
    // drawn then) or its value is not finite (a gap). False when the view had
    // to grow to take the point, and when the time is not a finite number,
    // for which the point is dropped.
    bool addpendCurveData(int id, const QPointF& point);
    QVector<QPointF> curveData(int id) const { return m_curveMap.value(id); }
    void clearCurves();
    void clearCurve(int id);
    void setCurveName(int id, const QString& name);
    void setTitle(const QString& title);
    QColor getCurverColor(int id) const;

    void setDrawPolyline(bool polyline);
    bool isDrawPolyline() const { return m_drawPolyline; }
    void showDrawModeButton(bool show);
    // The newest points a curve keeps, give or take 60; 0 keeps them all.
    void setMaxPoints(int maxPoints) { m_maxPoints = maxPoints; }
    int maxPoints() const { return m_maxPoints; }
    // Writes the plot to fileName as PNG, and a black-and-white copy beside it
    // whose name ends in "_bw.png"; false when either write fails.
    bool saveInFile(const QString& fileName);

    // For tests and benchmarks: false draws every point instead of the few
    // that make up each pixel column. The picture is the same either way.
    void setDecimation(bool on);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

public slots:
    void zoomIn();
    void zoomOut();
    void changeDrawMode();
    void scrollUp();
    void scrollDown();
    void scrollLeft();
    void scrollRight();
    void scrollPlot(int dx, int dy);

signals:
    void zoomChanged();
    void minXChanged(double minX);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QRect plotRect() const;
    void refreshPixmap();
    void refreshPixmapAfterAppend(int id);
    void drawGrid(QPainter* painter);
    void drawLegend(QPainter* painter);
    void drawCurves(QPainter* painter);
    void drawCurve(QPainter* painter, int id, const QVector<QPointF>& data);
    QRect drawCurveAfterAppend(QPainter* painter, int id);
    void updateZoomButtons();
    void retranslate();

    QMap<int, QVector<QPointF>> m_curveMap;
    QMap<int, QString> m_curveNames;
    // Curves whose times go back somewhere: they are drawn point by point,
    // without the search for the view's edges.
    QSet<int> m_unordered;
    QVector<PlotSettings> m_zoomStack;
    int m_curZoom = 0;
    bool m_rubberBandIsShown = false;
    QRect m_rubberBandRect;
    QPoint m_pressPos;
    bool m_leftButtonPressed = false;
    bool m_rightButtonPressed = false;
    QPoint m_wheelDelta; // what a fine-grained wheel turned short of a notch
    bool m_drawPolyline = true;
    QString m_title;
    QPixmap m_pixmap;
    int m_maxPoints = 0;
    bool m_decimation = true;

    QToolButton* m_zoomInButton;
    QToolButton* m_zoomOutButton;
    QToolButton* m_upButton;
    QToolButton* m_downButton;
    QToolButton* m_leftButton;
    QToolButton* m_rightButton;
    QToolButton* m_drawModeButton;
};

#endif // PLOTTER_H
