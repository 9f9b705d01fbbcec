#include "filethread.h"
#include "readingsmodel.h"

#include <QtTest>

#include <limits>

namespace {

QVariantMap reading(int second, bool failed = false)
{
    QVariantMap map{{"DateTime", QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addSecs(second)},
                    {"PV", float(second) + 0.25f},
                    {"output_current", 4.5f},
                    {"statusCode", "00 00"}};
    map.insert(failed ? QVariantMap{{"errorText", "Response timeout (370ms)"}}
                      : QVariantMap{{"SV", 1.5f}, {"TV", std::numeric_limits<float>::quiet_NaN()}, {"statusText", ""}});
    return map;
}

} // namespace

class TestReadingsModel : public QObject
{
    Q_OBJECT

private slots:
    void windowOfLastReadings()
    {
        ReadingsModel model;
        QCOMPARE(model.limit(), 300000);
        model.setLimit(3);
        for (int i = 0; i <= 3; ++i)
            model.append(reading(i));
        // The fourth reading pushed out the first.
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(model.data(model.index(0, 0)).toString(), QStringLiteral("01.01.2026 00:00:01"));
        QCOMPARE(model.data(model.index(2, 1)).toString(), QStringLiteral("3.25"));
    }

    void rowsAsShownAndExported_data()
    {
        QTest::addColumn<bool>("failed");
        QTest::addColumn<QStringList>("shown"); // the cells of the row
        QTest::addColumn<QString>("line");      // the archive's line of it

        QTest::newRow("good, TV not a number")
            << false << QStringList{"01.01.2026 00:00:07", "7.25", "4.50", "1.50", "", "00 00 "}
            << "3;2026-01-01 00:00:07;7.25;4.50;00 00;1.50;nan;";
        QTest::newRow("failed: no values")
            << true << QStringList{"01.01.2026 00:00:07", "", "", "", "", "00 00 Response timeout (370ms)"}
            << "3;2026-01-01 00:00:07;7.25;4.50;00 00;";
    }

    void rowsAsShownAndExported()
    {
        QFETCH(bool, failed);
        ReadingsModel model;
        model.setColumns("°C", {ReadingsModel::SV, ReadingsModel::TV});
        model.append(reading(7, failed));
        QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("PV [°C]"));
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells << model.data(model.index(0, column)).toString();
        QTEST(cells, "shown");
        QCOMPARE(model.flags(model.index(0, 1)) & Qt::ItemIsEditable, Qt::NoItemFlags);
        // The export writes the reading as the archive does.
        const QVariantMap map = model.readingMap(0);
        QTEST(FileThread::archiveLine(3, map.value("DateTime").toDateTime(), map), "line");
    }
};

QTEST_MAIN(TestReadingsModel)
#include "tst_readingsmodel.moc"
