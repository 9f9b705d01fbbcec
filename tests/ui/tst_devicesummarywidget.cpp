#include "device.h"
#include "devicesummarywidget.h"
#include "modelline.h"

#include <QPushButton>
#include <QtTest>

class TestDeviceSummaryWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void identify_data();
    void identify();

private:
    ModelLine m_line;
};

void TestDeviceSummaryWidget::init()
{
    QString error;
    QVERIFY2(m_line.start(&error), qPrintable(error));
}

void TestDeviceSummaryWidget::cleanup()
{
    m_line.stop();
}

void TestDeviceSummaryWidget::identify_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<int>("address");
    QTest::addColumn<QString>("tag"); // empty: nobody answers
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("manufacturer");
    QTest::addColumn<QString>("longAddress");
    QTest::newRow("TCV-C") << "TCV-C" << 0 << "TT-101"
                           << "DEMO TEMPERATURE CONVERTER"
                           << "224 (0xE0)"
                           << "20 91 00 91 01";
    QTest::newRow("generic") << "General" << 3 << "FT-104"
                             << "DEMO GENERIC HART 7 DEVICE"
                             << "17 (0x11)"
                             << "11 2A 00 2A 01";
    QTest::newRow("nobody there") << "QP-1C" << 9 << ""
                                  << ""
                                  << ""
                                  << "";
}

void TestDeviceSummaryWidget::identify()
{
    QFETCH(QString, model);
    QFETCH(int, address);
    QFETCH(QString, tag);
    QFETCH(QString, message);
    QFETCH(QString, manufacturer);
    QFETCH(QString, longAddress);
    Device* device = m_line.port()->addDevice(QString(), model, -1);
    device->setAddress(address);
    DeviceSummaryWidget page;
    page.setItem(device);
    QCOMPARE(page.rowText("valuePollingAddress"), QString::number(address));
    QCOMPARE(page.rowText("valueLongAddress"), QString());
    QCOMPARE(page.rowText("valueState"), QStringLiteral("from file"));

    QSignalSpy changed(&page, &DeviceSummaryWidget::changed);
    QTest::mouseClick(page.findChild<QPushButton*>("buttonIdentify"), Qt::LeftButton);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(page.rowText("valueTag"), tag);
    QCOMPARE(page.rowText("valueMessage"), message);
    if (tag.isEmpty()) {
        QVERIFY(!device->isIdentified());
        QVERIFY(!page.rowText("valueError").isEmpty());
        QCOMPARE(page.rowText("valueError"), device->errorText());
        QCOMPARE(page.rowText("valueDeviceId"), QString());
        return;
    }
    QVERIFY(device->isIdentified());
    QCOMPARE(page.rowText("valueLongAddress"), longAddress);
    // The identifier is the long address's last three bytes, also as a number.
    const QString id = longAddress.right(8);
    QCOMPARE(page.rowText("valueDeviceId"),
             QStringLiteral("%1 (number %2)").arg(id).arg(QString(id).remove(QLatin1Char(' ')).toUInt(nullptr, 16)));
    QCOMPARE(page.rowText("valueManufacturer"), manufacturer);
    QCOMPARE(page.rowText("valueState"), QStringLiteral("form device"));
    QCOMPARE(page.rowText("valueError"), QString());
}

QTEST_MAIN(TestDeviceSummaryWidget)
#include "tst_devicesummarywidget.moc"
