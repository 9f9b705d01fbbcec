#include "debugqt.h"
#include "defaultdevice.h"
#include "modelline.h"
#include "ph77device.h"
#include "qp1device.h"
#include "tcv2device.h"

#include <QSignalSpy>
#include <QtTest>

class TestDefaultDevice : public QObject
{
    Q_OBJECT

    ModelLine m_line;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void init()
    {
        QString error;
        QVERIFY2(m_line.start(&error), qPrintable(error));
    }

    void cleanup() { m_line.stop(); }

    void createDevicePicksTheClass_data()
    {
        QTest::addColumn<QString>("templateName");
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("protectedFunctions");

        QTest::newRow("TCV-C") << "TCV-C" << QString("TCV2Device") << "TCV-C_(1)" << true;
        QTest::newRow("DX-C") << "DX-C" << QString("TCV2Device") << "TCV-C_(1)" << true;
        QTest::newRow("QP-1C") << "QP-1C" << QString("QP1Device") << "QP-1C_(1)" << true;
        QTest::newRow("pH-7702") << "pH-7702" << QString("PH77Device") << "pH-7702_(1)" << true;
        QTest::newRow("General") << "General" << QString("DefaultDevice") << "Default_(1)" << false;
        QTest::newRow("the name must match exactly") << "tcv-c" << QString("Device") << "Device1" << false;
        QTest::newRow("no name") << "" << QString("Device") << "Device1" << false;
    }

    void createDevicePicksTheClass()
    {
        QFETCH(QString, templateName);
        QFETCH(QString, className);
        QFETCH(QString, name);

        Port* port = m_line.port();
        port->setProperty("priority", 7);
        QSignalSpy modified(port, &ServerItem::modified);
        QScopedPointer<Device> device(port->createDevice(templateName));
        QCOMPARE(QString::fromLatin1(device->metaObject()->className()), className);
        QCOMPARE(device->name(), name);
        QCOMPARE(device->deviceTemplateName(), templateName);
        QCOMPARE(device->pollingPeriod(), 1000);
        QCOMPARE(device->priority(), 7);
        QTEST(device->hasMetrologyAccess(), "protectedFunctions");
        emit device->modified();
        QCOMPARE(modified.size(), 1);
    }

    void noProtectedFunctions()
    {
        Device* device = m_line.identify(QStringLiteral("General"), 3);
        QVERIFY(device);
        QSignalSpy errors(device, &Device::deviceError);

        QVERIFY(!device->sendAdjustCode(12345));
        QCOMPARE(device->errorCode(), 3);
        QCOMPARE(device->errorText(),
                 QStringLiteral("the device '%1' has no protected function 'metrology access' (cmd=190)")
                     .arg(device->name()));
        QVERIFY(!device->writeFactoryNumber(hx("123456")));
        QCOMPARE(device->errorText(),
                 QStringLiteral("the device '%1' has no protected function 'write factory number' (cmd=194)")
                     .arg(device->name()));
        QCOMPARE(errors.size(), 2);
        QVERIFY(!device->hasDeviceInfoParam("metrology_access"));

        // Nothing went out: the next request the line serves follows command 0.
        QVERIFY(device->readDevice(1));
        QCOMPARE(int(m_line.sim().record(2).command), 1);
        QCOMPARE(m_line.sim().line().requests().size(), 2);
    }
};

QTEST_GUILESS_MAIN(TestDefaultDevice)
#include "tst_defaultdevice.moc"
