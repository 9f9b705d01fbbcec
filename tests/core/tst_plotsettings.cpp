#include "columns.h"
#include "plotsettings.h"

#include <QDateTime>
#include <QtTest>

#include <cfloat>
#include <cmath>

class TestPlotSettings : public QObject
{
    Q_OBJECT

private slots:
    void adjustYAxis_data()
    {
        addColumns<double, double, int, double, double, int>({"min", "max", "target", "newMin", "newMax", "ticks"});

        QTest::newRow("0 to 10: step 2") << 0.0 << 10.0 << 5 << 0.0 << 10.0 << 5;
        QTest::newRow("gross step under 2: step 1") << 0.3 << 9.7 << 5 << 0.0 << 10.0 << 10;
        QTest::newRow("step 5") << 1.0 << 27.0 << 5 << 0.0 << 30.0 << 6;
    }

    void adjustYAxis()
    {
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(int, target);
        PlotSettings settings{0, 10, 5, min, max, 5, target};
        settings.adjustYAxis();
        QTEST(settings.minY, "newMin");
        QTEST(settings.maxY, "newMax");
        QTEST(settings.numYTicks, "ticks");
    }

    void adjustXAxis_data()
    {
        addColumns<double, double>({"span", "step"});

        QTest::newRow("300 s: gross 50 s, step 30 s") << 300.0 << 30.0;
        QTest::newRow("an hour: 10 minutes") << 3600.0 << 600.0;
        QTest::newRow("21 hours: 3 hours") << 75600.0 << 10800.0;
        QTest::newRow("4 days: 12 hours") << 345600.0 << 43200.0;
        QTest::newRow("10 days: a day") << 864000.0 << 86400.0;
    }

    void adjustXAxis()
    {
        QFETCH(double, span);
        QFETCH(double, step);
        const double start = double(QDateTime(QDate(2024, 3, 12), QTime(10, 17, 23)).toSecsSinceEpoch());
        PlotSettings settings{start, start + span};
        settings.adjustXAxis();
        QCOMPARE(settings.spanX() / settings.numXTicks, step);
        QVERIFY(settings.numXTicks >= 6);
        QVERIFY(settings.minX <= start && settings.maxX >= start + span);
        QVERIFY(settings.minX > start - step);
        // The left edge on a round time of the local clock.
        const QTime left = QDateTime::fromSecsSinceEpoch(qint64(settings.minX)).time();
        QCOMPARE(left.msecsSinceStartOfDay() % qint64(step * 1000), 0);
    }

    void degenerate_data()
    {
        const double nan = std::nan("");
        const double inf = INFINITY;
        const double t = 1.7e9;
        addColumns<double, double, double, double>({"minX", "maxX", "minY", "maxY"});

        QTest::newRow("one moment, one value") << t << t << 20.0 << 20.0;
        QTest::newRow("value 0") << t << t << 0.0 << 0.0;
        QTest::newRow("all NaN") << nan << nan << nan << nan;
        QTest::newRow("one edge infinite") << t << inf << -inf << 5.0;
        QTest::newRow("edges swapped") << t + 100 << t << 10.0 << 0.0;
    }

    void degenerate()
    {
        QFETCH(double, minX);
        QFETCH(double, maxX);
        QFETCH(double, minY);
        QFETCH(double, maxY);
        PlotSettings settings{minX, maxX, 5, minY, maxY};
        settings.adjust();
        QVERIFY(std::isfinite(settings.spanX()) && settings.spanX() > 0);
        QVERIFY(std::isfinite(settings.spanY()) && settings.spanY() > 0);
        QVERIFY(settings.numXTicks >= 6);
        QVERIFY(settings.numYTicks >= 5 && settings.numYTicks <= 15);
        // Finite input of an ordinary size stays in view.
        for (double x : {minX, maxX})
            if (std::abs(x) < 1e11)
                QVERIFY(settings.minX <= x && x <= settings.maxX);
        for (double y : {minY, maxY})
            if (std::abs(y) < 1e300)
                QVERIFY(settings.minY <= y && y <= settings.maxY);
    }

    void scroll()
    {
        // By whole grid intervals, the spans kept.
        PlotSettings settings{0, 60, 6};
        settings.scroll(-2, 3);
        QCOMPARE(settings.minX, -20.0);
        QCOMPARE(settings.minY, 6.0);
        QCOMPARE(settings.spanX(), 60.0);
        QCOMPARE(settings.spanY(), 10.0);
    }
};

QTEST_APPLESS_MAIN(TestPlotSettings)
#include "tst_plotsettings.moc"
