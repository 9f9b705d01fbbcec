#include "debugqt.h"
#include "defaultdevice.h"
#include "modelline.h"

#include <QSignalSpy>
#include <QtTest>

class TestDefaultDevice : public QObject
{
    Q_OBJECT

    ModelLine m_line;

private slots:
    void initTestCase() { DebugQt::instance(0x8ED0001, nullptr); }

    void cleanup() { m_line.stop(); }

    void noProtectedFunctions()
    {
        QString error;
        Device* device = m_line.startWith(QStringLiteral("General"), 3, &error);
        QVERIFY2(qobject_cast<DefaultDevice*>(device), qPrintable(error));
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
