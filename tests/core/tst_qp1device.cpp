#include "debugqt.h"
#include "modelline.h"
#include "qp1device.h"

#include <QSignalSpy>
#include <QtEndian>
#include <QtTest>

class TestQP1Device : public QObject
{
    Q_OBJECT

    ModelLine m_line;
    Device* m_device = nullptr; // the QP-1C at 1, identified

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init()
    {
        QString error;
        QVERIFY2(m_line.start(&error), qPrintable(error));
        m_device = m_line.identify(QStringLiteral("QP-1C"), 1);
        QVERIFY(m_device);
        QVERIFY(qobject_cast<QP1Device*>(m_device));
    }

    void cleanup()
    {
        m_device = nullptr;
        m_line.stop();
    }

    void reads_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QVariantMap>("values");
        QTest::addColumn<bool>("noData");

        const QVariantMap configuration = {
            {"decimal_point_position", 2}, {"average_count", 8},        {"input_units", 7},
            {"free_range_min", -50.5f},    {"free_range_max", 750.25f}, {"indicate_range_min", 1.5f},
            {"indicate_range_max", 99.5f}, {"calibrate_unit_code", 11}, {"line_points_count", 4}};

        QTest::newRow("132") << 132 << "decimal point position" << QVariantMap{{"decimal_point_position", 3}} << false;
        QTest::newRow("135 configuration") << 135 << "device configuration" << configuration << false;
        QTest::newRow("135 without data: zeros") << 135 << "device configuration" << configuration << true;
        QTest::newRow("139") << 139 << "temperature correction params"
                             << QVariantMap{{"temper_correction_mode", 2},
                                            {"t1_correcton_value", 15.5f},
                                            {"t2_correcton_value", 45.25f}}
                             << false;
    }

    void reads() { m_line.checkRead(m_device, 1); }

    void pressureForLinePoint()
    {
        // The device computes the pressure; the float of its answer stands in
        // front of the checksum.
        QVERIFY(m_device->readDevice(149));
        const hartsim::RequestRecord record = m_line.sim().record(2);
        QCOMPARE(int(record.command), 149);
        const QByteArray raw = record.answer.mid(record.answer.size() - 5, 4);
        const float pressure = qFromBigEndian<float>(raw.constData());
        QVERIFY(pressure > 200.0f);
        QCOMPARE(m_device->deviceInfo().value("line_point_pressure"), QVariant(pressure));
        QVERIFY(m_device->messageLog().contains(QStringLiteral("reading pressure for line point (cmd=149)...\n")));
    }

    void writes_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("label");
        QTest::addColumn<bool>("access");
        QTest::addColumn<QVariantMap>("simSetup");
        QTest::addColumn<QVariantMap>("info");
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QString>("warning");

        const QVariantMap none;
        QTest::newRow("133") << 133 << "decimal point position" << false << none
                             << QVariantMap{{"decimal_point_position", 3}} << hx("03") << QString();
        QTest::newRow("134") << 134 << "average_count" << false << none << QVariantMap{{"average_count", 12}}
                             << hx("0c") << QString();
        QTest::newRow("136") << 136 << "calibration unit code" << true << none
                             << QVariantMap{{"calibrate_unit_code", 7}} << hx("07") << QString();
        QTest::newRow("137") << 137 << "line points count" << true << none << QVariantMap{{"line_points_count", 5}}
                             << hx("05") << QString();
        QTest::newRow("138") << 138 << "line point value" << true << QVariantMap{{"line_points_count", 4}}
                             << QVariantMap{{"line_point_number", 2}, {"line_point_value", 12.5f}} << hx("0241480000")
                             << QString();
        QTest::newRow("138 beyond the count: a warning")
            << 138 << "line point value" << true << none
            << QVariantMap{{"line_point_number", 6}, {"line_point_value", 3.0f}} << hx("0640400000")
            << "*** linearization point not used";
        QTest::newRow("140") << 140 << "temper corretion mode" << true << none
                             << QVariantMap{{"temper_correction_mode", 1}} << hx("01") << QString();
        QTest::newRow("141") << 141 << "temper corretion" << true << none
                             << QVariantMap{{"temper_correction_step", 2}, {"temper_correction_value", 55.0f}}
                             << hx("02425c0000") << QString();
        QTest::newRow("141 another temperature: a warning")
            << 141 << "temper corretion" << true << QVariantMap{{"tcorr_1_set", true}, {"tcorr_1_temperature", 20.0}}
            << QVariantMap{{"temper_correction_step", 1}, {"temper_correction_value", 25.0f}} << hx("0141c80000")
            << "*** temperature is different from previous value at this point";
        QTest::newRow("142") << 142 << "adjust gain" << false << none << QVariantMap{{"gain_adjustment", 250.0f}}
                             << hx("437a0000") << QString();
        QTest::newRow("145") << 145 << "free ragne" << false << none
                             << QVariantMap{{"free_range_min", -10.0f}, {"free_range_max", 500.0f}}
                             << hx("c120000043fa0000") << QString();
        QTest::newRow("146") << 146 << "indication range" << false << none
                             << QVariantMap{{"indicate_range_min", 0.5f}, {"indicate_range_max", 80.0f}}
                             << hx("3f00000042a00000") << QString();
        QTest::newRow("147 sensor, without a label") << 147 << "" << true << none
                                                     << QVariantMap{{"sensor_unit_code", 7},
                                                                    {"sensor_range_max", 16.0f},
                                                                    {"sensor_range_min", -1.0f},
                                                                    {"sensor_minimum_range", 0.5f}}
                                                     << hx("0741800000bf8000003f000000") << QString();
    }

    void writes()
    {
        m_line.checkWrite(m_device, 1);
        if (QTest::currentTestFailed())
            return;
        QFETCH(QString, warning);
        QCOMPARE(m_device->statusTexts().contains(warning), !warning.isEmpty());
    }

    // Command 148 stores what the device holds for the point, even for a point
    // it does not use (response code 8, a warning).
    void linePointReadBack_data()
    {
        QTest::addColumn<int>("point");
        QTest::addColumn<QVariantMap>("simSetup");
        QTest::addColumn<float>("value");
        QTest::addColumn<bool>("warning");

        QTest::newRow("a point in use") << 2
                                        << QVariantMap{{"line_points_count", 3},
                                                       {"line_point_2_value", 1.5},
                                                       {"line_point_2_set", true}}
                                        << 1.5f << false;
        QTest::newRow("an unused point") << 5 << QVariantMap{{"line_point_5_value", 7.25}} << 7.25f << true;
    }

    void linePointReadBack()
    {
        QFETCH(int, point);
        QFETCH(QVariantMap, simSetup);
        QFETCH(float, value);

        for (auto it = simSetup.constBegin(); it != simSetup.constEnd(); ++it)
            m_line.sim().setParam(1, it.key(), it.value());
        m_device->setDeviceInfo("line_point_number", point);
        m_device->setDeviceInfo("line_point_value", 99.0f);
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");

        QVERIFY(m_device->writeDevice(148));
        QCOMPARE(m_line.sim().record(2).data, QByteArray(1, char(point)));
        QCOMPARE(m_device->deviceInfo().value("line_point_number"), QVariant(point));
        QCOMPARE(m_device->deviceInfo().value("line_point_value"), QVariant(value));
        QTEST(m_device->statusTexts().contains(QStringLiteral("*** linearization point not used")), "warning");
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
        // The label holds "get": the log line takes it as it stands.
        QVERIFY(m_device->messageLog().contains(QStringLiteral("get line point value (cmd=148)...\n")));
    }

    void changedEcho()
    {
        m_device->setDeviceInfo("free_range_min", 1.0f);
        m_device->setDeviceInfo("free_range_max", 2.0f);
        m_line.sim().addFault(1, emptyAnswer(145));
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");
        QVERIFY(!m_device->writeDevice(145));
        QCOMPARE(m_device->errorText(), QStringLiteral("*** cmdData != response"));
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount);
        QCOMPARE(m_line.sim().record(2).data, hx("3f80000040000000"));
    }

    void protectedCommands()
    {
        m_device->setDeviceInfo("calibrate_unit_code", 7);
        QVERIFY(!m_device->writeDevice(136));
        QCOMPARE(m_device->errorText(), QStringLiteral("Command error (error code 16): *** restricted access"));
        QCOMPARE(m_line.sim().param(1, "calibrate_unit_code").toInt(), 12);

        QVERIFY(m_device->sendAdjustCode(12345));
        // Saved as the manufacturer's, changed, restored: the save alone
        // leaves the configuration as it is.
        const int modifyCount = m_device->getDeviceInfoByte("modify_count");
        m_device->setDeviceInfo("manufacturer_settings", 1);
        QVERIFY(m_device->writeDevice(192));
        QCOMPARE(m_line.sim().record(4).data, hx("01"));
        QVERIFY(m_device->writeDevice(136));
        QCOMPARE(m_line.sim().param(1, "calibrate_unit_code").toInt(), 7);
        m_device->setDeviceInfo("manufacturer_settings", 0);
        QVERIFY(m_device->writeDevice(192));
        QCOMPARE(m_line.sim().record(6).data, hx("00"));
        QCOMPARE(m_line.sim().param(1, "calibrate_unit_code").toInt(), 12);
        QCOMPARE(m_device->getDeviceInfoByte("modify_count"), modifyCount + 2);

        QVERIFY(m_device->sendAdjustCode(0));
        QVERIFY(!m_device->writeDevice(136));
        QCOMPARE(m_device->errorCode(), -3);
    }
};

QTEST_GUILESS_MAIN(TestQP1Device)
#include "tst_qp1device.moc"
