#include "columns.h"
#include "plotter.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <cmath>

class TestPlotter : public QObject
{
    Q_OBJECT

private slots:
    void rubberBand_data()
    {
        addColumns<QPoint, bool>({"drag", "zooms"});
        QTest::newRow("2 pixels wide") << QPoint(2, 60) << false;
        QTest::newRow("2 pixels high") << QPoint(-60, -2) << false;
        QTest::newRow("3 pixels") << QPoint(3, 3) << true;
        QTest::newRow("up and left") << QPoint(-80, -50) << true;
    }

    void rubberBand()
    {
        QFETCH(QPoint, drag);
        QFETCH(bool, zooms);
        Plotter plotter;
        plotter.resize(400, 300);
        plotter.show();
        QVERIFY(QTest::qWaitForWindowExposed(&plotter));
        PlotSettings view;
        view.maxX = 600;
        view.adjust();
        plotter.setPlotSettings(view);
        QSignalSpy zoomed(&plotter, &Plotter::zoomChanged);
        auto* next = plotter.findChild<QToolButton*>(QStringLiteral("btnZoomIn"));
        auto* previous = plotter.findChild<QToolButton*>(QStringLiteral("btnZoomOut"));
        const QPoint from(200, 130);
        QTest::mousePress(&plotter, Qt::LeftButton, {}, from);
        QCOMPARE(plotter.cursor().shape(), Qt::CrossCursor);
        QTest::mouseMove(&plotter, from + drag);
        QTest::mouseRelease(&plotter, Qt::LeftButton, {}, from + drag);
        QCOMPARE(zoomed.count(), zooms ? 1 : 0);
        QCOMPARE(previous->isVisible(), zooms);
        QCOMPARE(plotter.getCurZoomPlotSettings().spanX() < view.spanX() / 2, zooms);
        if (!zooms)
            return;
        QVERIFY(!next->isEnabled()); // at the last level
        QVERIFY(previous->isEnabled());
        previous->click();
        QVERIFY(next->isEnabled());
        QVERIFY(!previous->isEnabled()); // at level 0
        QCOMPARE(plotter.getCurZoomPlotSettings().maxX, view.maxX);
        next->click();
        QCOMPARE(zoomed.count(), 3);
        QVERIFY(plotter.getCurZoomPlotSettings().spanX() < view.spanX() / 2);
    }

    void maxPoints_data()
    {
        addColumns<int, int, int, double>({"maxPoints", "before", "after", "oldest"});
        QTest::newRow("300 061st point drops the oldest") << 300000 << 300060 << 300060 << 1.0;
        QTest::newRow("300 060th point keeps all") << 300000 << 300059 << 300060 << 0.0;
        QTest::newRow("no limit") << 0 << 1000 << 1001 << 0.0;
    }

    void maxPoints()
    {
        QFETCH(int, maxPoints);
        QFETCH(int, before);
        Plotter plotter;
        plotter.setMaxPoints(maxPoints);
        QVector<QPointF> data(before);
        for (int i = 0; i < before; ++i)
            data[i] = QPointF(i, 1);
        plotter.setCurveData(3, data);
        plotter.addpendCurveData(3, QPointF(before, 1));
        data = plotter.curveData(3);
        QTEST(int(data.size()), "after");
        QTEST(data.first().x(), "oldest");
        QCOMPARE(data.last().x(), double(before));
    }

    void saveInFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("bwName"); // empty: the write fails

        QTest::newRow("png") << "plot.png" << QString("plot_bw.png");
        QTest::newRow("no suffix") << "plot" << QString("plot_bw.png");
        QTest::newRow("missing directory") << "missing/plot.png" << QString("");
    }

    void saveInFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, bwName);
        QTemporaryDir dir;
        Plotter plotter;
        plotter.resize(300, 200);
        PlotSettings view;
        view.maxX = 100;
        plotter.setPlotSettings(view);
        plotter.setCurveData(0, {QPointF(0, 4.2), QPointF(100, 4.2)});
        QCOMPARE(plotter.saveInFile(dir.filePath(name)), !bwName.isEmpty());
        if (bwName.isEmpty())
            return;
        const QImage colour(dir.filePath(name), "png");
        const QImage bw(dir.filePath(bwName));
        QCOMPARE(bw.size(), colour.size());
        QCOMPARE(bw.depth(), 1);
        QCOMPARE(bw.pixelColor(5, 5), QColor(Qt::white));
        // The curve, in its colour, stays black in the copy.
        const int x = 90;
        int y = 0;
        while (y < colour.height() && colour.pixelColor(x, y) != plotter.getCurverColor(0))
            ++y;
        QVERIFY(y < colour.height());
        QCOMPARE(bw.pixelColor(x, y), QColor(Qt::black));
    }

    void decimation_data()
    {
        QTest::addColumn<bool>("polyline");
        QTest::addColumn<int>("gapEvery"); // a NaN value every so many points
        QTest::addColumn<bool>("zoomed");  // a view well inside the data, the curve leaving it at the top and bottom
        QTest::newRow("polyline") << true << 0 << false;
        QTest::newRow("points") << false << 0 << false;
        QTest::newRow("polyline with gaps") << true << 997 << false;
        QTest::newRow("points with gaps") << false << 997 << false;
        QTest::newRow("polyline, zoomed") << true << 0 << true;
    }

    void decimation()
    {
        QFETCH(bool, polyline);
        QFETCH(int, gapEvery);
        QFETCH(bool, zoomed);
        Plotter plotter;
        plotter.resize(300, 200);
        plotter.setDrawPolyline(polyline);
        QRandomGenerator random(7);
        QVector<QPointF> data(20000);
        for (int i = 0; i < data.size(); ++i) {
            const double y = 5 + 3 * std::sin(i / 1500.0) + 2 * random.generateDouble() - 1;
            data[i] = QPointF(1000 + i, gapEvery && i % gapEvery == 0 ? std::nan("") : y);
        }
        plotter.setCurveData(1, data);
        PlotSettings view;
        view.minX = zoomed ? 6000 : 1000;
        view.maxX = zoomed ? 9000 : 21000;
        view.minY = zoomed ? 3 : 0;
        view.maxY = zoomed ? 7 : 10;
        plotter.setPlotSettings(view);
        const QImage thinned = plotter.grab().toImage();
        plotter.setDecimation(false);
        const QImage every = plotter.grab().toImage();

        int differing = 0;
        int curve = 0;
        for (int y = 0; y < every.height(); ++y) {
            for (int x = 0; x < every.width(); ++x) {
                differing += thinned.pixel(x, y) != every.pixel(x, y);
                curve += every.pixelColor(x, y) == plotter.getCurverColor(1);
            }
        }
        QCOMPARE(differing, 0);
        QVERIFY2(curve > 1000, "the curve covers a good part of the plot");
    }
};

QTEST_MAIN(TestPlotter)
#include "tst_plotter.moc"
