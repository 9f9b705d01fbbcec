#include "debugqt.h"
#include "deviceline.h"
#include "devicewidget.h"
#include "pvwidget.h"

#include <QLCDNumber>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

class TestPVWidget : public QObject
{
    Q_OBJECT

private slots:
    void statusLines_data()
    {
        QTest::addColumn<QByteArray>("code");
        QTest::addColumn<QStringList>("texts"); // one report after the other
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("configChanged");

        QTest::newRow("good, no prefix") << QByteArray(2, 0) << QStringList{"all well"} << "all well" << false;
        QTest::newRow("prefixed, once each")
            << QByteArray("\x00\x40", 2) << QStringList{"Configuration changed\nCold start", "Cold start"}
            << "[00 40] Configuration changed\n[00 40] Cold start" << true;
        QTest::newRow("separator unprefixed") << QByteArray("\x07\x00", 2) << QStringList{"--- more ---\nProtected"}
                                              << "--- more ---\n[07 00] Protected" << false;
    }

    void statusLines()
    {
        QFETCH(QByteArray, code);
        QFETCH(QStringList, texts);
        QFETCH(QString, shown);

        DeviceWidget owner;
        PVWidget panel(&owner, 4, true);
        panel.onUpdateButtons(true);
        for (const QString& text : texts)
            panel.appendDeviceStatus(text, code);
        QCOMPARE(panel.statusLines(), shown);
        QTEST(panel.findChild<QPushButton*>("btnResetConfigChanged")->isEnabled(), "configChanged");
        // A new transaction starts a new list.
        panel.onInitProgressBar(QStringLiteral("next"), 1);
        panel.appendDeviceStatus(texts.first(), code);
        QCOMPARE(panel.statusLines(), shown.section('\n', 0, texts.first().count('\n')));
    }

    void refreshAgainstDevice()
    {
        DebugQt::instance(0, nullptr);
        DeviceLine line;
        QVERIFY(line.start({{"generic", {{"polling_address", 0}, {"var_0_value", 12.3456}, {"var_0_amplitude", 0}}}}));
        Device* device = line.addDevice(0, QStringLiteral("General"));
        DeviceWidget owner;
        PVWidget panel(&owner, 4, true);
        emit owner.deviceChanged(device);
        QVERIFY(device->readDevice(0));
        panel.onUpdateButtons(true);
        panel.findChild<QPushButton*>("btnRefresh")->click();
        QCOMPARE(panel.findChild<QLCDNumber*>("lcdPVValue")->value(), 12.35);
        QVERIFY(!panel.findChild<QLabel*>("lbPVUnit")->text().isEmpty());
        QCOMPARE(panel.findChild<QLineEdit*>("txtOutputCurrent")->text(),
                 QString::number(device->getDeviceInfoFloat("output_current"), 'f', 3));
    }
};

QTEST_MAIN(TestPVWidget)
#include "tst_pvwidget.moc"
