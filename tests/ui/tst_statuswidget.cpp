#include "device.h"
#include "devicewidget.h"
#include "modalanswerer.h"
#include "statuswidget.h"

#include <QtTest>

class TestStatusWidget : public QObject
{
    Q_OBJECT

private slots:
    void statusColour_data()
    {
        QTest::addColumn<QByteArray>("code");
        QTest::addColumn<QString>("shown");

        QTest::newRow("none") << QByteArray() << "<p style=\"color: green; font: bold;\"></p>";
        QTest::newRow("good") << QByteArray(2, 0) << "<p style=\"color: green; font: bold;\">00 00</p>";
        QTest::newRow("response code") << QByteArray("\x07\x00", 2) << "<p style=\"color: red; font: bold;\">07 00</p>";
        QTest::newRow("device status") << QByteArray("\x00\x40", 2) << "<p style=\"color: magenta;\">00 40</p>";
        QTest::newRow("both: device status") << QByteArray("\x05\x4a", 2) << "<p style=\"color: magenta;\">05 4A</p>";
    }

    void statusColour()
    {
        QFETCH(QByteArray, code);
        DeviceWidget owner;
        StatusWidget status(&owner);
        status.onAppendDeviceStatus(QString(), code);
        QTEST(status.statusText(), "shown");
    }

    void verdict_data()
    {
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("taken");
        QTest::addColumn<int>("final"); // the argument of the final message
        QTest::addColumn<QString>("error");
        QTest::addColumn<bool>("green");
        QTest::addColumn<QStringList>("boxes");

        QTest::newRow("all steps") << 2 << 2 << 0 << "old error" << true << QStringList();
        QTest::newRow("steps given") << 3 << 0 << 3 << "" << true << QStringList();
        QTest::newRow("no step announced") << 0 << 0 << 0 << "" << true << QStringList();
        QTest::newRow("short, quiet device") << 2 << 1 << 0 << "" << false << QStringList();
        QTest::newRow("short, device error")
            << 2 << 1 << 0 << "No answer***timeout" << false << QStringList{"Reading|No answer\n*timeout"};
    }

    void verdict()
    {
        QFETCH(int, steps);
        QFETCH(int, taken);
        QFETCH(int, final);
        QFETCH(QString, error);
        QFETCH(bool, green);
        Device device;
        device.setErrorText(error);
        DeviceWidget owner(nullptr, &device);
        StatusWidget status(&owner);
        status.onDeviceChanged(&device);
        ModalAnswerer answerer;
        status.onInitProgressBar(QStringLiteral("Reading"), steps);
        status.onInitProgressBar(QStringLiteral("Second"), 99); // a running sequence keeps its own
        for (int i = 0; i < taken; ++i)
            status.onNextStep();
        status.onShowFinalMessage(final);
        QCOMPARE(status.errorText().contains("completed successfully"), green);
        QCOMPARE(status.errorText().contains("completed with errors"), !green);
        QTEST(answerer.seen(), "boxes");
        QVERIFY(!status.isBusy());
    }
};

QTEST_MAIN(TestStatusWidget)
#include "tst_statuswidget.moc"
